#include "acquire/web/hosts.h"

#include <gtest/gtest.h>

#include <set>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(Hosts, HaveTheNamesOfTheFile) {
    struct Row {
        Host host;
        const char* name;
    };
    constexpr Row kRows[] = {{Host::Quote, "QuoteHost"},
                             {Host::History, "HistoryHost"},
                             {Host::YahooBiz, "YahooBizHost"},
                             {Host::YahooScreen, "YahooScreenHost"},
                             {Host::NasdaqMain, "NasdaqMainHost"},
                             {Host::NasdaqQuotes, "NasdaqQuotesHost"},
                             {Host::NasdaqNews, "NasdaqNewsHost"},
                             {Host::NasdaqEarnings, "NasdaqEarningsHost"},
                             {Host::NasdaqDynamic, "NasdaqDynamicHost"},
                             {Host::NasdaqScreening, "NasdaqScreeningHost"},
                             {Host::Vendor, "VendorHost"}};
    ASSERT_EQ(std::size(kRows), kHosts.size());
    for (std::size_t i = 0; i < kHosts.size(); ++i) {
        EXPECT_EQ(kHosts[i].host, kRows[i].host) << i;
        EXPECT_EQ(static_cast<std::size_t>(kHosts[i].host), i);
        EXPECT_EQ(kHosts[i].name, kRows[i].name) << i;
        const std::string line = std::string(kRows[i].name) + "=http://127.0.0.1:8080/x";
        EXPECT_EQ(Hosts::Parse(line).Address(kRows[i].host), "http://127.0.0.1:8080/x") << line;
        EXPECT_EQ(Hosts().Address(kRows[i].host), kHosts[i].builtIn) << line;
    }
}

// Where the quotes of a market come from whose built-in address the settings hold.
std::string AddressInForce(const Hosts& hosts, std::size_t market) {
    SettingsTables settings;
    settings.QuoteHost = kMarkets[market].builtIn;
    return hosts.QuoteHostInForce(settings);
}

TEST(Hosts, HaveTheMarketsOfTheDialog) {
    struct Row {
        const char* control;
        const char* name;
        bool decimalCommas;
    };
    constexpr Row kRows[] = {
        {"Option70", "US", false},        {"Option71", "UK", false},        {"Option72", "Australia", false},
        {"Option73", "Germany", true},    {"Option74", "Mexico", false},    {"Option75", "France", true},
        {"Option76", "Hong Kong", false}, {"Option77", "Singapore", false}, {"Option78", "Norway", true},
        {"Option79", "Sweden", false},    {"Option80", "Japan", false},     {"Option81", "Canada E", false},
        {"Option82", "India", false},     {"Option83", "Spain", false},     {"Option84", "Argentina", true},
        {"Option85", "Brazil", true},     {"Option86", "China", false},     {"Option87", "Korea", false},
        {"Option88", "Taiwan", false},    {"Option89", "Denmark", true},    {"Option90", "Canada F", false},
        {"Option91", "Italy", true}};
    ASSERT_EQ(std::size(kRows), kMarkets.size());
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        const Row& row = kRows[i];
        EXPECT_EQ(kMarkets[i].control, row.control);
        EXPECT_EQ(kMarkets[i].name, row.name);
        EXPECT_EQ(AddressInForce(Hosts(), i), kMarkets[i].builtIn);
        EXPECT_EQ(Hosts().MarketAt(kMarkets[i].builtIn), i) << row.name;
        EXPECT_EQ(Hosts().HasDecimalCommas(kMarkets[i].builtIn), row.decimalCommas) << row.name;
        const Hosts own = Hosts::Parse("Market." + std::string(row.name) + "=http://127.0.0.1:8080/m\n");
        EXPECT_EQ(AddressInForce(own, i), "http://127.0.0.1:8080/m") << row.name;
        EXPECT_EQ(own.MarketAt("http://127.0.0.1:8080/m"), i) << row.name;
        EXPECT_EQ(own.MarketAt(kMarkets[i].builtIn), i) << row.name;
        EXPECT_EQ(own.HasDecimalCommas("http://127.0.0.1:8080/m"), row.decimalCommas) << row.name;
        EXPECT_EQ(own.HasDecimalCommas(kMarkets[i].builtIn), false) << row.name;
    }
}

TEST(Hosts, BuiltInAddressesAreWholeAndEachItsOwn) {
    std::set<std::string_view> seen;
    for (const HostRow& row : kHosts) seen.insert(row.builtIn);
    for (const MarketRow& row : kMarkets) seen.insert(row.builtIn);
    // The quote host and the United States market are one.
    EXPECT_EQ(seen.size(), kHosts.size() + kMarkets.size() - 1);
    for (const std::string_view address : seen) {
        EXPECT_EQ(address.substr(0, 8), "https://");
        EXPECT_NE(address.back(), '/') << address;
    }
}

TEST(Hosts, BadLinesAreIgnored) {
    struct Row {
        const char* text;
        const char* address;  // of HistoryHost; null for the built-in one
    };
    constexpr Row kRows[] = {
        {"HistoryHost=http://h", "http://h"},
        {"# HistoryHost=http://h", nullptr},
        {"#HistoryHost=http://h\r\nHistoryHost=http://i\r\n", "http://i"},
        {"  HistoryHost = http://h/de  \r\n", "http://h/de"},
        {"HistoryHost=http://h/\n", "http://h"},
        {"HistoryHost=http://h///\n", "http://h"},
        {"HistoryHost=http://a\nHistoryHost=http://b\n", "http://b"},
        {"HistoryHost=http://a\nHistoryHost=\n", "http://a"},
        {"HistoryHost=h.example\n", nullptr},
        {"HistoryHost=file:///etc\n", nullptr},
        {"HistoryHost=http://\n", nullptr},
        {"HistoryHost=http://a b\n", nullptr},
        {"HistoryHost http://a\n", nullptr},
        {"historyhost=http://a\n", nullptr},
        {"=http://a\n", nullptr},
        {"HistoryHost\n", nullptr},
        {"Market.HistoryHost=http://a\n", nullptr},
        {"\xEF\xBB\xBFHistoryHost=http://h\n", "http://h"},
        {"HistoryHost=http://h?a=b", "http://h?a=b"},
        {"", nullptr},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Hosts::Parse(row.text).Address(Host::History),
                  row.address == nullptr ? "https://history.brantlow.example" : row.address)
            << row.text;
    }
    std::string junk;
    for (int i = 0; i < 65'536; ++i) junk += static_cast<char>(i * 31);
    EXPECT_EQ(Hosts::Parse(junk).Address(Host::Vendor), "https://www.brantlow.example");
}

TEST(Hosts, TheChosenMarketWinsOverQuoteHost) {
    struct Row {
        const char* why;
        const char* file;
        const char* chosen;
        const char* inForce;
    };
    constexpr Row kRows[] = {
        {"nothing said", "", "", "https://quotes.brantlow.example"},
        {"no choice, a host in the file", "QuoteHost=http://q", "", "http://q"},
        {"the loader's stand-in for no choice", "QuoteHost=http://q", "https://quotes.brantlow.example",
         "http://q"},
        {"a choice", "QuoteHost=http://q", "http://de", "http://de"},
        {"a choice, no host in the file", "", "http://de", "http://de"},
        {"no choice, an own United States host", "Market.US=http://us", "", "http://us"},
        {"both", "Market.US=http://us\nQuoteHost=http://q", "", "http://q"},
        {"a market that the file puts elsewhere", "Market.Germany=http://de",
         "https://de.quotes.brantlow.example", "http://de"},
        {"a market that the file does not name", "Market.Germany=http://de",
         "https://fr.quotes.brantlow.example", "https://fr.quotes.brantlow.example"},
    };
    for (const Row& row : kRows) {
        SettingsTables settings;
        settings.QuoteHost = row.chosen;
        EXPECT_EQ(Hosts::Parse(row.file).QuoteHostInForce(settings), row.inForce) << row.why;
    }
}

TEST(LoadHosts, ReadsTheFileOfTheDataFolder) {
    TempFolder folder;
    EXPECT_EQ(LoadHosts(folder.Get()).Address(Host::Vendor), "https://www.brantlow.example");
    ASSERT_FALSE(WriteWholeFile(folder / "Hosts.ini", "VendorHost=http://127.0.0.1:8080"));
    EXPECT_EQ(LoadHosts(folder.Get()).Address(Host::Vendor), "http://127.0.0.1:8080");
}

TEST(Hosts, KnowTheMarkOfThePracticeMarket) {
    EXPECT_TRUE(Hosts::Parse("# practice market\r\nQuoteHost=http://127.0.0.1:1\r\n").IsPracticeMarket());
    EXPECT_TRUE(Hosts::Parse("QuoteHost=http://127.0.0.1:1\n# practice market").IsPracticeMarket());
    EXPECT_FALSE(Hosts::Parse("# no practice market\n").IsPracticeMarket());
    EXPECT_FALSE(Hosts::Parse("QuoteHost=http://127.0.0.1:1\n").IsPracticeMarket());
    EXPECT_FALSE(Hosts().IsPracticeMarket());
}

}  // namespace
}  // namespace brantlow
