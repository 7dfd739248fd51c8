// The web cache, the per-user store and the offline flag.
#include <gtest/gtest.h>

#include "acquire/version/online_status.h"
#include "acquire/version/user_registry.h"
#include "acquire/web/memory_web.h"
#include "acquire/web/url_cache.h"
#include "shell/user_store.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using Urls = std::vector<std::string>;
using States = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

constexpr const char* kInternetSettings = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";

TEST(UrlCache, ListsTheEntriesThatShareABitWithTheMask) {
    MemoryUrlCache cache;
    cache.Add("http://a", 1);
    cache.Add("cookie:b", 1048576);
    cache.Add("http://c", 1 | 1048576);
    cache.Add("http://d", 4);
    EXPECT_EQ(GetUrlCacheEntries(cache, 1), (Urls{"http://a", "http://c"}));
    EXPECT_EQ(GetUrlCacheEntries(cache, 1048576), (Urls{"cookie:b", "http://c"}));
    EXPECT_EQ(GetUrlCacheEntries(cache, 0), Urls{});
    EXPECT_EQ(GetUrlCacheEntries(cache, 0xFFFFFFFF).size(), 4U);
}

TEST(UrlCache, AnEmptyCacheGivesTwoEmptyListsAndNoError) {
    MemoryUrlCache cache;
    EXPECT_EQ(GetUrlCacheEntries(cache, kNormalCacheEntry), Urls{});
    EXPECT_EQ(GetUrlCacheEntries(cache, kCookieCacheEntry), Urls{});
    PurgeUrlCache(cache);
    EXPECT_TRUE(cache.Entries().empty());
}

TEST(UrlCache, DeletesOneEntryByItsAddress) {
    MemoryUrlCache cache;
    cache.Add("http://a", 1);
    EXPECT_FALSE(DeleteCacheEntry(cache, "http://b"));
    EXPECT_TRUE(DeleteCacheEntry(cache, "http://a"));
    EXPECT_FALSE(DeleteCacheEntry(cache, "http://a"));
}

TEST(PurgeUrlCache, DeletesPagesAndCookiesOfEveryHostAndNothingElse) {
    MemoryUrlCache cache;
    cache.Add("http://a", 1);
    cache.Add("cookie:b", 1048576);
    cache.Add("http://history", 2097152);
    PurgeUrlCache(cache);
    ASSERT_EQ(cache.Entries().size(), 1U);
    EXPECT_EQ(cache.Entries().front().url, "http://history");
}

// Deletes pages before cookies and fails for one of them.
class StubbornCache final : public UrlCache {
  public:
    std::vector<UrlCacheEntry> Entries() const override {
        return {{"cookie", kCookieCacheEntry}, {"stuck", kNormalCacheEntry}, {"page", kNormalCacheEntry}};
    }
    bool Delete(std::string_view url) override {
        Asked.emplace_back(url);
        return url != "stuck";
    }
    Urls Asked;
};

TEST(PurgeUrlCache, RunsToItsEndWhenADeletionFails) {
    StubbornCache cache;
    PurgeUrlCache(cache);
    EXPECT_EQ(cache.Asked, (Urls{"stuck", "page", "cookie"}));
}

TEST(ReadRegistryValue, TurnsEachTypeIntoText) {
    struct Row {
        std::uint32_t type;
        std::string bytes;
        std::string text;
    };
    using namespace std::string_literals;
    const Row kRows[] = {{4, "\x07\0\0\0"s, "007"},
                         {4, "\0\0\0\0"s, "000"},
                         {4, "\x01\x02\0\0"s, "513"},
                         {4, "\xE8\x03\0\0"s, "1000"},
                         {4, "\xFF\xFF\xFF\xFF"s, "4294967295"},
                         {4, "\x07"s, "007"},
                         {3, "\x0A\xFF\x00\x07"s, "0AFF0007"},
                         {3, "", ""},
                         {1, "text\0"s, "text"},
                         {1, "\0"s, ""},
                         {1, "", ""},
                         {2, "%x%\0"s, "%x%"},
                         {1, std::string(2047, 'a') + '\0', std::string(2047, 'a')},
                         {1, std::string(2048, 'a') + '\0', ""}};
    for (const Row& row : kRows) {
        UserRegistry registry;
        registry.Set(kCurrentUserKey, "Key", "Name", {row.type, row.bytes});
        EXPECT_EQ(ReadRegistryValue(registry, kCurrentUserKey, "Key", "Name"), row.text)
            << row.type << ' ' << row.text.substr(0, 20);
    }
}

// A number below 256 as the registry keeps it.
RegistryValue Number(std::uint32_t number) {
    return {kNumberValue, std::string(1, static_cast<char>(number)) + std::string(3, '\0')};
}

TEST(ReadRegistryValue, ANumberSevenReads007) {
    UserRegistry registry;
    registry.Set(kCurrentUserKey, "Key", "Name", Number(7));
    EXPECT_EQ(ReadRegistryValue(registry, kCurrentUserKey, "Key", "Name"), "007");
}

TEST(ReadRegistryValue, OfAMissingValueIsEmpty) {
    UserRegistry registry;
    registry.SetText(kCurrentUserKey, "Key", "Name", "x");
    EXPECT_EQ(ReadRegistryValue(registry, kCurrentUserKey, "Key", "Other"), "");
    EXPECT_EQ(ReadRegistryValue(registry, kCurrentUserKey, "Other", "Name"), "");
    EXPECT_EQ(ReadRegistryValue(registry, "HKEY_LOCAL_MACHINE", "Key", "Name"), "");
    EXPECT_EQ(ReadRegistryValue(registry, "hkey_current_user", "KEY", "name"), "x");
}

TEST(UserRegistry, ReadsTheUsersStore) {
    const UserRegistry registry = UserRegistry::Parse(
        "stray=1\r\n[HKEY_CURRENT_USER\\Some\\Key]\r\nNumber=dword:0000000a\r\n Bytes = hex:0a, ff ,7\r\n"
        "Text=a = b\r\nBad=dword:xyz\r\nWorse=hex:1,zz\r\nno value\r\n[Settings]\nMainLeft=1000\n[open\nx=y");
    struct Row {
        const char* root;
        const char* key;
        const char* name;
        const char* text;
    };
    constexpr Row kRows[] = {{"HKEY_CURRENT_USER", "Some\\Key", "Number", "010"},
                             {"HKEY_CURRENT_USER", "Some\\Key", "Bytes", "0AFF07"},
                             {"HKEY_CURRENT_USER", "Some\\Key", "Text", "a = b"},
                             {"HKEY_CURRENT_USER", "Some\\Key", "Bad", "dword:xyz"},
                             {"HKEY_CURRENT_USER", "Some\\Key", "Worse", "hex:1,zz"},
                             {"HKEY_CURRENT_USER", "Some\\Key", "no value", ""},
                             {"Settings", "", "MainLeft", "1000"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(ReadRegistryValue(registry, row.root, row.key, row.name), row.text) << row.name;
    }
}

TEST(UserRegistry, SharesTheFileOfTheSettingsStore) {
    TempFolder folder;
    const Path file = UserStoreFile(folder.Get().string(), folder.Get());
    EXPECT_EQ(GlobalUserOffline(LoadUserRegistry(file)), 0);
    ASSERT_FALSE(SaveSetting(file, "Settings", "MainLeft", "1000"));
    ASSERT_FALSE(SaveSetting(file, std::string("HKEY_CURRENT_USER\\") + kInternetSettings,
                             "GlobalUserOffline", "dword:00000001"));
    EXPECT_EQ(GlobalUserOffline(LoadUserRegistry(file)), 1);
}

UserRegistry WithFlag(std::uint32_t flag) {
    UserRegistry registry;
    registry.Set(kCurrentUserKey, kInternetSettings, "GlobalUserOffline", Number(flag));
    return registry;
}

TEST(OnLineStatus, ASecondCallDoesNotChangeOfflineAtStart) {
    for (const std::uint32_t first : {0U, 1U}) {
        MemoryWeb web;
        OnlineState state;
        EXPECT_FALSE(state.OfflineAtStart);
        OnLineStatus(state, WithFlag(first), web);
        EXPECT_EQ(state.OfflineAtStart, first);
        OnLineStatus(state, WithFlag(1 - first), web);
        EXPECT_EQ(state.OfflineAtStart, first);
    }
}

TEST(OnLineStatus, AUserWhoStartedOfflineIsOnlineDuringTheWorkAndOfflineOnceTheFlagIsCleared) {
    MemoryWeb web;
    OnlineState state;
    web.Online = false;
    OnLineStatus(state, WithFlag(1), web);
    EXPECT_EQ(web.ConnectedStates, (States{{1, 0}}));
    EXPECT_TRUE(web.Online);
    OnLineStatus(state, WithFlag(0), web);
    EXPECT_EQ(web.ConnectedStates, (States{{1, 0}, {16, 1}}));
    EXPECT_FALSE(web.Online);
}

TEST(OnLineStatus, AUserWhoStartedOnlineIsLeftAlone) {
    MemoryWeb web;
    OnlineState state;
    for (const std::uint32_t flag : {0U, 1U, 0U}) OnLineStatus(state, WithFlag(flag), web);
    OnlineState odd;
    for (const std::uint32_t flag : {7U, 1U, 0U}) OnLineStatus(odd, WithFlag(flag), web);
    EXPECT_EQ(web.ConnectedStates, States{});
}

TEST(OnLineStatus, AnotherNumberChangesNothing) {
    MemoryWeb web;
    OnlineState state;
    OnLineStatus(state, WithFlag(1), web);
    OnLineStatus(state, WithFlag(2), web);
    EXPECT_EQ(web.ConnectedStates, (States{{1, 0}}));
}

}  // namespace
}  // namespace brantlow
