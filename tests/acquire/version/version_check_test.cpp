#include "acquire/version/version_check.h"

#include <gtest/gtest.h>

#include <regex>

#include "acquire/web/memory_web.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

constexpr const char* kPage = "http://v/Updates/brantlow/updateme.htm";

class VersionCheckTest : public ::testing::Test {
  protected:
    VersionCheckTest() { cache.Add("http://other", kNormalCacheEntry); }

    VersionOutcome Check(AskedBy askedBy) {
        return CheckVersion(web, cache, hosts, settings, folder.Get(), "Version: 1.2.3", askedBy, person);
    }

    TempFolder folder;
    RecordingPerson person;
    MemoryWeb web;
    MemoryUrlCache cache;
    Hosts hosts = Hosts::Parse("VendorHost=http://v");
    SettingsTables settings;
};

using Messages = std::vector<RecordingPerson::Message>;

TEST_F(VersionCheckTest, NothingNewerIsToldOnlyToAUserWhoAsked) {
    const WebReply kReplies[] = {
        MemoryWeb::Page("<html><body>Version: 1.2.3</body></html>", "text/html"),
        MemoryWeb::Page("Version: 1.2.3\r\n"),
        MemoryWeb::Page("\"Version: 1.2.3\",9\r\nVersion: 9"),
        MemoryWeb::Page(""),
        MemoryWeb::Page("<html></html>", "text/html"),
        FailedReply(WebFailure::NoConnection, "down"),
    };
    for (const WebReply& reply : kReplies) {
        web.Answer(kPage, reply);
        person.said.clear();
        EXPECT_EQ(Check(AskedBy::Program), VersionOutcome::Nothing) << reply.bytes;
        EXPECT_EQ(person.said, Messages{}) << reply.bytes;
        EXPECT_EQ(Check(AskedBy::User), VersionOutcome::Nothing) << reply.bytes;
        EXPECT_EQ(person.said, (Messages{{"No Updates are available.", ""}})) << reply.bytes;
    }
}

TEST_F(VersionCheckTest, ANewerVersionIsOfferedWhenAskedForOrAutomatic) {
    struct Row {
        AskedBy askedBy;
        const char* setting;
        VersionOutcome outcome;
    };
    constexpr Row kRows[] = {{AskedBy::User, "Manual Updates", VersionOutcome::NewVersion},
                             {AskedBy::User, "Automatic Updates", VersionOutcome::NewVersion},
                             {AskedBy::Program, "Automatic Updates", VersionOutcome::NewVersion},
                             {AskedBy::Program, "Manual Updates", VersionOutcome::Nothing},
                             {AskedBy::Program, "", VersionOutcome::Nothing},
                             {AskedBy::Program, "automatic updates", VersionOutcome::Nothing}};
    web.Answer(kPage, MemoryWeb::Page("<p>Version: 1.2.4</p>", "text/html"));
    for (const Row& row : kRows) {
        settings.DataSettings.Set(12, Value::OfText(row.setting));
        EXPECT_EQ(Check(row.askedBy), row.outcome) << row.setting;
    }
    EXPECT_EQ(person.said, Messages{});
}

TEST_F(VersionCheckTest, PurgesTheCacheAndLeavesNoScratchFile) {
    web.Answer(kPage, MemoryWeb::Page("Version: 1.2.4"));
    Check(AskedBy::Program);
    EXPECT_TRUE(cache.Entries().empty());
    EXPECT_EQ(FileNamesIn(folder.Get()), std::vector<std::string>{});
    EXPECT_EQ(web.Addresses, std::vector<std::string>{kPage});
}

TEST_F(VersionCheckTest, LeavesAPageThatNeverCompletesAfterTenSeconds) {
    WebRequest asked;
    web.AnswerWith([&](const WebRequest& request) {
        asked = request;
        return FailedReply(WebFailure::TimedOut, "late");
    });
    EXPECT_EQ(Check(AskedBy::Program), VersionOutcome::Nothing);
    EXPECT_EQ(asked.limitSeconds, 10);
    web.NeverComplete(kPage, "Version: 1.2.4");
    EXPECT_EQ(Check(AskedBy::User), VersionOutcome::NewVersion);
}

TEST(RunningVersion, IsMajorMinorAndRevision) {
    EXPECT_TRUE(std::regex_match(RunningVersion(), std::regex(R"(Version: \d+\.\d+\.\d+)")))
        << RunningVersion();
}

}  // namespace
}  // namespace brantlow
