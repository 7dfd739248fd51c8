#include "market/market_hosts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "acquire/web/hosts.h"
#include "market/market_request.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

const std::string kBase = "http://127.0.0.1:8080";

class MarketHostsTest : public ::testing::Test {
  protected:
    TempFolder folder;
    Path file = folder.Get() / "Hosts.ini";
};

TEST_F(MarketHostsTest, NamesTheMarketForEveryHost) {
    EXPECT_EQ(PointHosts(file, kBase).outcome, HostsOutcome::Written);
    const Hosts hosts = LoadHosts(folder.Get());
    EXPECT_TRUE(hosts.IsPracticeMarket());
    for (const HostRow& row : kHosts) EXPECT_EQ(hosts.Address(row.host), kBase) << row.name;
    std::set<std::string> addresses;
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        SettingsTables chosen;
        chosen.QuoteHost = kMarkets[i].builtIn;
        const std::string& address = hosts.QuoteHostInForce(chosen);
        EXPECT_EQ(address, kBase + MarketPrefix(kMarkets[i])) << kMarkets[i].name;
        EXPECT_EQ(hosts.HasDecimalCommas(address), kMarkets[i].decimals == Decimals::Comma)
            << kMarkets[i].name;
        addresses.insert(address);
    }
    EXPECT_EQ(addresses.size(), kMarkets.size());
}

TEST_F(MarketHostsTest, WritesItsOwnFileAnew) {
    PointHosts(file, kBase);
    EXPECT_EQ(PortInHosts(file), 8080);
    EXPECT_EQ(PointHosts(file, "http://127.0.0.1:9").outcome, HostsOutcome::Written);
    EXPECT_EQ(PortInHosts(file), 9);
}

TEST_F(MarketHostsTest, LeavesAUsersFileAlone) {
    for (const std::string bytes :
         {"", "QuoteHost=http://127.0.0.1:8080\n", "#practice market\n", "# My practice market\n"}) {
        ASSERT_FALSE(WriteWholeFile(file, bytes));
        EXPECT_EQ(PointHosts(file, kBase).outcome, HostsOutcome::Foreign) << bytes;
        EXPECT_EQ(BytesOrEmpty(file), bytes);
        EXPECT_EQ(PortInHosts(file), std::nullopt);
        EXPECT_FALSE(LoadHosts(folder.Get()).IsPracticeMarket());
    }
}

TEST_F(MarketHostsTest, TellsWhatCannotBeWritten) {
    const HostsResult result = PointHosts(folder.Get() / "none" / "Hosts.ini", kBase);
    EXPECT_EQ(result.outcome, HostsOutcome::Failed);
    EXPECT_TRUE(result.error);
    std::filesystem::create_directory(file);
    EXPECT_EQ(PointHosts(file, kBase).outcome, HostsOutcome::Failed);
}

TEST_F(MarketHostsTest, FindsNoPortWhereNoneIs) {
    EXPECT_EQ(PortInHosts(file), std::nullopt);
    for (const std::string address :
         {"", "http://127.0.0.1", "http://127.0.0.1:0", "http://127.0.0.1:65536", "http://127.0.0.1:80/de"}) {
        ASSERT_FALSE(WriteWholeFile(file, "# practice market\nQuoteHost=" + address + "\n"));
        EXPECT_EQ(PortInHosts(file), std::nullopt) << address;
    }
}

}  // namespace
}  // namespace brantlow
