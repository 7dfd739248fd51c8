#include "research/research_catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "shell/settings/default_hosts.h"

namespace brantlow {
namespace {

// Hosts that say in an address which of them it was.
constexpr std::string_view kHostsText =
    "QuoteHost=http://quote.test\nYahooBizHost=http://biz.test\nYahooScreenHost=http://screen.test\n"
    "NasdaqMainHost=http://main.test\nNasdaqQuotesHost=http://quotes.test\nNasdaqNewsHost=http://news.test\n"
    "NasdaqEarningsHost=http://earnings.test\nNasdaqDynamicHost=http://dynamic.test\n"
    "NasdaqScreeningHost=http://screening.test\nVendorHost=http://vendor.test\n"
    "HistoryHost=http://history.test\n";

class ResearchCatalogue : public ::testing::Test {
  protected:
    ResearchCatalogue() { Choose("Yahoo"); }

    void Choose(std::string_view provider) { settings.NetSettings.Set(1, Value::OfText(provider)); }
    ResearchTarget Target(std::string_view command, std::string_view ticker = "") const {
        return TargetOf(command, {hosts, settings}, ticker);
    }
    std::string Address(std::string_view command, std::string_view ticker = "") const {
        return Target(command, ticker).address;
    }

    Hosts hosts = Hosts::Parse(kHostsText);
    SettingsTables settings;
};

struct Row {
    std::string_view command, yahoo, nasdaq;
};

constexpr Row kTickerRows[] = {
    {"mnuPopUpAnalyst", "http://biz.test/a/r/I/IBM.html",
     "http://main.test/earnings/"
     "analyst_summary.asp?&kind=&mode=stock&symbol=IBM&selected=IBM&FormType=&mkttype=&pathname=&page="
     "analystinfo"},
    {"mnuPopUpChart", "http://quote.test/q?s=IBM&d=c",
     "http://quotes.test/"
     "quote.dll?mode=basics&kind=&symbol=IBM&selected=IBM&FormType=&mkttype=&pathname=&page=charting"},
    {"mnuPopUpCompetitors", "http://quote.test/q/co?s=IBM",
     "http://quotes.test/screening/"
     "ViewCompetitors.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=competitor&selected=IBM"},
    {"mnuPopUpDetailedQuote", "http://quote.test/q?s=IBM&d=t",
     "http://quotes.test/asp/"
     "summaryquote.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=summaryquote&selected=IBM"},
    {"mnuPopUpFinancials", "http://biz.test/fin/l/I/IBM.html",
     "http://main.test/asp/"
     "ExtendFund.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=full&selected=IBM"},
    {"mnuPopUpKeyStatistics", "http://quote.test/q/ks?s=IBM",
     "http://main.test/asp/"
     "ExtendFund.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=full&selected=IBM"},
    {"mnuPopUpIndustry", "http://biz.test/ic/I/IBM.html",
     "http://quotes.test/screening/"
     "ViewCompetitors.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=competitor&selected=IBM"},
    {"mnuPopUpInsiderTrading", "http://biz.test/t/I/IBM.html",
     "http://main.test/asp/"
     "Holdings.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=holdingssummary&selected=IBM"},
    {"mnuPopUpMessageBoard", "http://quote.test/q/mb?s=IBM", "http://quote.test/q/mb?s=IBM"},
    {"mnuPopUpNews", "http://quote.test/q/h?s=IBM",
     "http://news.test/news/"
     "newsHeadlines.aspx?&kind=&symbol=IBM&selected=IBM&FormType=&mkttype=&pathname=&page=news"},
    {"mnuPopUpOptions", "http://quote.test/q?s=IBM&d=o",
     "http://quotes.test/asp/"
     "option_mostactive.asp?mode=&kind=&symbol=IBM&FormType=&mkttype=&pathname=&page=options&selected=IBM"},
    {"mnuPopUpOwnership", "http://biz.test/hd/I/IBM.html",
     "http://main.test/asp/Holdings.asp?symbol=IBM&selected=IBM&page=holdingssummary"},
    {"mnuPopUpProfile", "http://biz.test/p/I/IBM.html",
     "http://main.test/asp/quotes_reports.asp?symbol=IBM&selected=IBM&page=stockreports"},
    {"mnuPopUpRealTimeQuote", "http://quote.test/q?s=IBM&d=e",
     "http://quotes.test/quote.dll?&mode=stock&symbol=IBM&selected=IBM&page=quick"},
    {"mnuPopUpReports", "http://screen.test/d?vw=0&db=reports&z=dat&tk=IBM",
     "http://main.test/asp/quotes_reports.asp?symbol=IBM&selected=IBM"},
    {"mnuPopUpResearch", "http://biz.test/z/a/I/IBM.html",
     "http://main.test/asp/stock_consultant.asp?symbol=IBM&selected=IBM"},
    {"mnuPopUpSECFilings", "http://biz.test/e/l/I/IBM.html",
     "http://main.test/asp/quotes_sec.asp?symbol=IBM&selected=IBM&page=filings"},
};

constexpr Row kMarketRows[] = {
    {"mnuViewAdvanceDecline", "http://quote.test/m0?u",
     "http://dynamic.test/asp/usmostactive.asp?exchange=nasdaq&mostactive=adv"},
    {"mnuViewDowngrades", "http://quote.test/mrd",
     "http://earnings.test/earnings/Analyst_Rec_change.asp?SortTable=Downgrade"},
    {"mnuViewEconomicCalander", "http://biz.test/c/e.html",
     "http://main.test/asp/econodayframe.asp?page=http://main.test/econoday/index.html"},
    {"mnuViewEarnings", "http://biz.test/research/earncal/today.html",
     "http://earnings.test/earnings/Analyst_Forecast_change.asp?SortTable=Increase"},
    {"mnuViewInPlay", "http://quote.test/mp?u", "http://screening.test/heatmaps/heatmap_100.asp"},
    {"mnuViewIPOs", "http://biz.test/ipo/", "http://main.test/reference/ipos.stm"},
    {"mnuViewMarketOverview", "http://quote.test/mt?u", "http://dynamic.test/aspx/majorindices.aspx"},
    {"mnuViewMostActiveAMEX", "http://quote.test/mnvl?e=aq",
     "http://dynamic.test/asp/USmostactive.asp?exchange=AMEX"},
    {"mnuViewMostActiveNYSE", "http://quote.test/mnvl?e=nq",
     "http://dynamic.test/asp/USmostactive.asp?exchange=NYSE"},
    {"mnuViewMostActiveNasdq", "http://quote.test/mnvl?e=o",
     "http://dynamic.test/asp/USmostactive.asp?exchange=Nasdaq"},
    {"mnuViewSplits", "http://biz.test/c/s.html", "http://main.test/reference/upcoming_splits.stm"},
    {"mnuViewStockScreener", "http://screen.test/stocks.html", "http://main.test/reference/guru.stm"},
    {"mnuViewSymbolSearch", "http://quote.test/l",
     "http://main.test/asp/"
     "HomeSymLookup.asp?parentLocation=&srch=name&contain=0&mode=stock&key=a&go.x=16&go.y=6"},
    {"mnuViewUSIndices", "http://quote.test/m1?u", "http://dynamic.test/dynamic/activityPrompt.stm"},
    {"mnuViewUpgrades", "http://quote.test/mru?u",
     "http://earnings.test/earnings/Analyst_Rec_change.asp?SortTable=Upgrade"},
    {"mnuViewWorldIndices", "http://quote.test/m2?u", "http://quotes.test/asp/globalindices_world.asp"},
};

TEST_F(ResearchCatalogue, TickerPagesHaveTheirAddressesAtBothProviders) {
    for (const Row& row : kTickerRows) {
        Choose("Yahoo");
        EXPECT_EQ(Address(row.command, "IBM"), row.yahoo) << row.command;
        Choose("NASDAQ");
        EXPECT_EQ(Address(row.command, "IBM"), row.nasdaq) << row.command;
        EXPECT_EQ(Target(row.command, "IBM").opensIn, OpensIn::Browser) << row.command;
    }
}

TEST_F(ResearchCatalogue, MarketPagesHaveTheirAddressesAtBothProviders) {
    for (const Row& row : kMarketRows) {
        Choose("Yahoo");
        EXPECT_EQ(Address(row.command), row.yahoo) << row.command;
        Choose("NASDAQ");
        EXPECT_EQ(Address(row.command), row.nasdaq) << row.command;
        EXPECT_EQ(Target(row.command).opensIn, OpensIn::Browser) << row.command;
    }
}

TEST_F(ResearchCatalogue, HoldsTheseCommandsAndNoOthers) {
    ASSERT_EQ(kResearchPages.size(), std::size(kTickerRows) + std::size(kMarketRows));
    std::size_t i = 0;
    for (const Row& row : kTickerRows) EXPECT_EQ(kResearchPages[i++].command, row.command);
    for (const Row& row : kMarketRows) EXPECT_EQ(kResearchPages[i++].command, row.command);
    for (const std::string_view other :
         {"", "mnuPopUpGraph", "mnuViewToolbar", "mnuHelpAbout", "MNUVIEWSPLITS"}) {
        EXPECT_FALSE(IsResearchCommand(other)) << other;
        EXPECT_EQ(Target(other, "IBM").opensIn, OpensIn::Nothing) << other;
    }
}

TEST_F(ResearchCatalogue, TheMessageBoardIgnoresTheProvider) {
    Choose("NASDAQ");
    EXPECT_EQ(Address("mnuPopUpMessageBoard", "T1"), "http://quote.test/q/mb?s=T1");
}

TEST_F(ResearchCatalogue, AnyProviderButYahooExactlyIsTheOther) {
    for (const std::string other : {"yahoo", "YAHOO", "Yahoo ", "", "x"}) {
        Choose(other);
        EXPECT_EQ(Address("mnuViewIPOs"), "http://main.test/reference/ipos.stm") << other;
    }
}

TEST_F(ResearchCatalogue, AnEmptyTickerOpensNothingForATickerAndStillTheMarket) {
    for (const Row& row : kTickerRows) {
        const ResearchTarget target = Target(row.command);
        EXPECT_EQ(target.opensIn, OpensIn::Nothing) << row.command;
        EXPECT_EQ(target.refusal, "") << row.command;
    }
    for (const Row& row : kMarketRows)
        EXPECT_EQ(Target(row.command).opensIn, OpensIn::Browser) << row.command;
}

TEST_F(ResearchCatalogue, AMarketPagePaysNoHeedToATicker) {
    for (const Row& row : kMarketRows) EXPECT_EQ(Address(row.command, "IBM"), row.yahoo) << row.command;
}

TEST_F(ResearchCatalogue, TickersStandAsTheyAreWithTheirFirstCharacterInItsCase) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"ibm", "/p/i/ibm.html"},        {"BRK.B", "/p/B/BRK.B.html"},
        {"^DJI", "/p/^/^DJI.html"},      {"7203", "/p/7/7203.html"},
        {"{T}", "/p/{/{T}.html"},        {"\xc3\x84Z", "/p/\xc3\x84/\xc3\x84Z.html"},
        {"\xc4Z", "/p/\xc4/\xc4Z.html"},
    };
    for (const auto& [ticker, path] : rows) {
        EXPECT_EQ(Address("mnuPopUpProfile", ticker), "http://biz.test" + std::string(path)) << ticker;
    }
}

TEST_F(ResearchCatalogue, TheChosenMarketsHostWinsOverTheQuoteHost) {
    settings.QuoteHost = "http://de.test/de";
    EXPECT_EQ(Address("mnuPopUpNews", "SAP"), "http://de.test/de/q/h?s=SAP");
    EXPECT_EQ(Address("mnuViewIPOs"), "http://biz.test/ipo/");
    settings.QuoteHost = kUnitedStatesQuoteHost;
    EXPECT_EQ(Address("mnuPopUpNews", "SAP"), "http://quote.test/q/h?s=SAP");
}

TEST_F(ResearchCatalogue, EveryPlaceInAPathIsFilled) {
    for (const ResearchPage& page : kResearchPages) {
        for (const std::string provider : {"Yahoo", "NASDAQ"}) {
            Choose(provider);
            const std::string address = Address(page.command, "T");
            EXPECT_EQ(address.find_first_of("{}"), std::string::npos) << address;
        }
        EXPECT_EQ(IsTickerPage(page), page.command.starts_with("mnuPopUp")) << page.command;
    }
}

TEST_F(ResearchCatalogue, VendorPagesOpenInTheUsersBrowser) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"mnuHelpQuestions", "http://vendor.test/questions.htm"},
        {"mnuHelpSupport", "http://vendor.test/feedback.htm"},
    };
    ASSERT_EQ(std::size(rows), kVendorPages.size());
    for (const auto& [command, address] : rows) {
        EXPECT_TRUE(IsResearchCommand(command));
        EXPECT_EQ(Target(command).opensIn, OpensIn::OutsideBrowser) << command;
        EXPECT_EQ(Address(command), address);
    }
}

TEST_F(ResearchCatalogue, TheBrokerageFirmOpensInTheUsersBrowser) {
    settings.NetSettings.Set(2, Value::OfText("http://broker.test/login?x=1"));
    for (const std::string_view command : {"mnuViewBrokererageFirm", "mnuPopUpTrade"}) {
        EXPECT_EQ(Target(command).opensIn, OpensIn::OutsideBrowser) << command;
        EXPECT_EQ(Address(command), "http://broker.test/login?x=1") << command;
    }
}

TEST_F(ResearchCatalogue, WithoutABrokerageFirmTheUserIsToldToSelectOne) {
    for (const std::string_view command : {"mnuViewBrokererageFirm", "mnuPopUpTrade"}) {
        EXPECT_EQ(Target(command, "IBM").opensIn, OpensIn::Nothing) << command;
        EXPECT_EQ(Target(command).refusal, "First, you must select you broker in Application Settings.");
    }
}

TEST_F(ResearchCatalogue, ATickerThatCannotStandInAnAddressOpensNoPage) {
    for (const std::string ticker : {"A&B", "A#B", "A?B", "A%42", "A B"}) {
        const ResearchTarget target = Target("mnuPopUpNews", ticker);
        EXPECT_EQ(target.opensIn, OpensIn::Nothing) << ticker;
        EXPECT_EQ(target.refusal, ticker + ": a ticker with a blank or one of & # ? % , cannot be asked for");
    }
    EXPECT_EQ(Target("mnuPopUpNews", "BRK.B").refusal, "");
}

TEST_F(ResearchCatalogue, TheForumsAddressHoldsNameAndPassword) {
    EXPECT_EQ(ForumAddress(hosts, "joe", "secret"),
              "http://vendor.test/UserForum/BullitenBoard/UFlogin.asp?UN=joe&PW=secret");
    EXPECT_EQ(ForumAddress(hosts, "joe&PW=x", "a b#c%\xc3\x84"),
              "http://vendor.test/UserForum/BullitenBoard/UFlogin.asp?UN=joe%26PW%3Dx&PW=a%20b%23c%25%C3%84");
}

}  // namespace
}  // namespace brantlow
