// Updates from the sources that VTRSRCset.ini chooses: what nobody attends, what comes after the quotes, and
// choices that do not hold.
#include "daily/live_setup.h"

#include <gmock/gmock.h>

#include <memory>

#include "daily/unattended_run.h"
#include "daily/update_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ChosenUpdateTest : public UpdateTest {
  protected:
    ChosenUpdateTest() {
        SetLines(session.settings.DataSettings,
                 {"", "", "", "", "", "2", "Automatic Save", "Automatic Save", "EOD", "16", "30", "", "",
                  "None", "", "Manual", "False", "", "Manual"});
        Set(session.settings.MruSettings, 1, "Mine.ddq");
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\tEPS ttm.\r\nT1\t\t\r\n");
        Write("Data/Keys.ini", "tiingo=practice-token\nsec=me@example.org\n");
        clock.Set(Today(), 23.5 * 3600);
        web.AnswerWith([this](const WebRequest& request) { return AnswerOf(request); });
    }
    void Choose(std::size_t line, std::string_view name) {
        session.settings.SrcSettings.Set(line, Value::OfText(name));
    }
    UnattendedRun Run() { return RunUnattended({session, web, hosts, *analysis, alerted, days, MuchMemory}); }

    // The day before is Thursday, March 14.
    WebReply AnswerOf(const WebRequest& request) {
        const auto asks = [&](std::string_view part) { return request.url.find(part) != std::string::npos; };
        if (asks("api.tiingo.com")) {
            return MemoryWeb::Page(
                R"([{"date":"2024-03-14T00:00:00.000Z","close":20,"high":21,"low":19,"open":20,"volume":10},
                    {"date":"2024-03-15T00:00:00.000Z","close":22,"high":23,"low":21,"open":22,"volume":20}])");
        }
        if (asks("company_tickers")) {
            return MemoryWeb::Page(R"({"0":{"cik_str":7,"ticker":"T1","title":"One"}})");
        }
        if (asks("EarningsPerShareDiluted")) {
            return MemoryWeb::Page(
                R"({"units":{"USD/shares":[{"start":"2023-01-01","end":"2023-12-31","val":2.5,"form":"10-K","filed":"2024-02-01"}]}})");
        }
        if (asks("sec.gov")) {
            WebReply none = MemoryWeb::Page("no such tag");
            none.status = 404;
            return none;
        }
        return Answer(request);
    }

    std::unique_ptr<Analysis> analysis = std::make_unique<Analysis>();
    DayStore days;
};

TEST_F(ChosenUpdateTest, ARunThatNobodyAttendsAsksTheChosenSource) {
    Choose(1, "tiingo");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Line(), "1 of 1 from Tiingo");
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tLast Price\tEPS ttm.\r\nT1\t22.000\t\r\n");
    EXPECT_THAT(Read("Quotes/EOD/T1.24"), StartsWith("\"03/15/24\""));
    for (const std::string& address : web.Addresses) EXPECT_THAT(address, HasSubstr("api.tiingo.com"));
}

TEST_F(ChosenUpdateTest, AnUpdateThatFindsNothingNewLeavesTheListOfTheOneBefore) {
    Choose(1, "tiingo");
    Run();
    const std::string list = Read("Quotes/EOD/QuoteList.ddq");
    EXPECT_EQ(list, "1\r\n\"T1\"\r\n");
    EXPECT_EQ(TickerLine(Run().report.Tickers().at(0)), "T1: nothing new");
    EXPECT_EQ(Read("Quotes/EOD/QuoteList.ddq"), list);
}

TEST_F(ChosenUpdateTest, FundamentalsAreAskedBehindTheQuotesOfALiveSource) {
    Choose(1, "tiingo");
    Choose(4, "sec");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Extent(), RunExtent::Whole);
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tLast Price\tEPS ttm.\r\nT1\t22.000\t2.500\r\n");
    ASSERT_EQ(run.report.Tickers().size(), 1u);
    EXPECT_EQ(TickerLine(run.report.Tickers()[0]),
              "T1: stored: derived from filings to 2023-12-31: EPS ttm.");
}

TEST_F(ChosenUpdateTest, FundamentalsAreAskedBehindTheStandardSourceToo) {
    Choose(4, "sec");
    Set(session.settings.NetSettings, 3, "Yahoo");
    lines["T1"] = ReplyLine("T1").With(3, "\"3/15/2024\"").Text();
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Line(), "1 of 1 quotes");
    const bool isAsked = std::any_of(web.Addresses.begin(), web.Addresses.end(), [](const std::string& url) {
        return url.find("sec.gov/files/company_tickers.json") != std::string::npos;
    });
    EXPECT_TRUE(isAsked);
}

TEST_F(ChosenUpdateTest, FundamentalsThatDoNotComeAreAFailureOfPartOfTheRun) {
    Choose(1, "tiingo");
    Choose(4, "sec");
    Write("Data/Keys.ini", "tiingo=practice-token\n");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Extent(), RunExtent::Partly);
    EXPECT_EQ(run.report.Lines().front(), "1 of 1 from Tiingo");
    EXPECT_THAT(run.report.Lines().back(), StartsWith("Fundamentals: 1 ticker failed at SEC EDGAR (T1): "));
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("T1\t22.000"));
}

TEST_F(ChosenUpdateTest, AChoiceThatDoesNotHoldStopsTheRunBeforeItAsks) {
    const std::string before = Read("Data/Mine.ddq");
    for (const std::size_t line : {1u, 3u, 4u, 6u}) {
        for (const std::size_t other : {1u, 3u, 4u, 6u}) Choose(other, "");
        Choose(line, "nobody");
        const UnattendedRun run = Run();
        EXPECT_EQ(run.report.Extent(), RunExtent::Nothing) << line;
        EXPECT_EQ(run.report.Line(),
                  "VTRSRCset.ini: 'nobody' is no source that is known here; nothing was changed");
    }
    EXPECT_TRUE(web.Addresses.empty());
    EXPECT_TRUE(person.said.empty());
    EXPECT_EQ(Read("Data/Mine.ddq"), before);
}

}  // namespace
}  // namespace brantlow
