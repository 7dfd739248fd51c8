// The market has a page for every address of the research catalogue.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquire/web/page_text.h"
#include "market/market_hosts.h"
#include "market_fixture.h"
#include "research/research_catalogue.h"

namespace brantlow {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr std::string_view kMarketAddress = "http://127.0.0.1:8080";

class MarketResearch : public ::testing::TestWithParam<std::string> {
  protected:
    MarketResearch() { settings.NetSettings.Set(1, Value::OfText(GetParam())); }

    // The text of the page that the command opens.
    std::string Text(std::string_view command, std::string_view ticker) {
        const std::string address = TargetOf(command, {hosts, settings}, ticker).address;
        EXPECT_TRUE(address.starts_with(kMarketAddress)) << command << ' ' << address;
        const MarketReply reply = Ask(std::string_view(address).substr(kMarketAddress.size()));
        EXPECT_EQ(reply.status, 200) << command;
        EXPECT_THAT(reply.contentType, HasSubstr("text/html")) << command;
        EXPECT_THAT(reply.body, HasSubstr("<title>")) << command;
        return PageText(reply.body, reply.contentType);
    }

    Hosts hosts = Hosts::Parse(MarketHostsText(kMarketAddress));
    SettingsTables settings;
};

TEST_P(MarketResearch, ShowsATickersQuoteOrFiguresOnEachOfItsPages) {
    for (const ResearchPage& page : kResearchPages) {
        if (!IsTickerPage(page)) continue;
        const std::string text = Text(page.command, "NFLX");
        if (text.find("Market Cap (intraday)") != std::string::npos) continue;
        EXPECT_THAT(text,
                    AllOf(HasSubstr("Ticker: NFLX\r\n"), HasSubstr("Last price: "), HasSubstr("Volume: ")))
            << page.command;
    }
}

TEST_P(MarketResearch, HasAPageForEachMarketCommand) {
    for (const ResearchPage& page : kResearchPages) {
        if (IsTickerPage(page)) continue;
        EXPECT_FALSE(Text(page.command, "").empty()) << page.command;
    }
}

TEST_P(MarketResearch, AnswersTheVendorsPages) {
    for (const VendorPage& page : kVendorPages) EXPECT_FALSE(Text(page.command, "").empty()) << page.command;
    const std::string forum = ForumAddress(hosts, "joe", "secret");
    EXPECT_EQ(Ask(std::string_view(forum).substr(kMarketAddress.size())).status, 200);
}

INSTANTIATE_TEST_SUITE_P(Providers, MarketResearch, ::testing::Values("Yahoo", "NASDAQ"));

}  // namespace
}  // namespace brantlow
