#include "shell/run_report.h"

#include <gmock/gmock.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;

RunReport Quotes() {
    return {"Update of Mine.ddq", "quotes"};
}

TEST(RunReport, CountsWhatCameAndNamesTheUnknown) {
    RunReport report = Quotes();
    for (int i = 0; i < 40; ++i) report.Tell("T" + std::to_string(i), TickerFate::Stored);
    report.Tell("OLD", TickerFate::NothingNew);
    report.Tell("ZZZ", TickerFate::Unknown);
    report.Tell("QQQ", TickerFate::Unknown);
    EXPECT_EQ(report.Line(), "41 of 43 quotes, 2 tickers unknown: ZZZ, QQQ");
    EXPECT_THAT(report.Lines(), ElementsAre(report.Line()));
    EXPECT_EQ(report.Extent(), RunExtent::Whole);
}

TEST(RunReport, OneThingIsCountedInTheSingular) {
    EXPECT_EQ(Counted(0, "row", "rows"), "0 rows");
    EXPECT_EQ(Counted(1, "row", "rows"), "1 row");
    EXPECT_EQ(Counted(2, "row", "rows"), "2 rows");
    EXPECT_EQ(CountedTickers(1), "1 ticker");
    EXPECT_EQ(CountedTickers(17999), "17999 tickers");
}

TEST(RunReport, OneUnknownTickerIsOne) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    report.Tell("ZZZ", TickerFate::Unknown);
    report.Add("stopped");
    EXPECT_EQ(report.Line(), "1 of 2 quotes, 1 ticker unknown: ZZZ, stopped");
}

TEST(RunReport, ARunThatWasStoppedCountsTheTickersThatItDidNotReach) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    report.Tell("ZZZ", TickerFate::Unknown);
    const std::vector<std::string> further = {"B", "C"};
    report.StopBefore(further);
    EXPECT_EQ(report.Line(), "1 of 4 quotes, 1 ticker unknown: ZZZ, stopped");
    EXPECT_EQ(TickerLine(report.Tickers().back()), "C: skipped: stopped");
    EXPECT_EQ(report.Extent(), RunExtent::Whole);
}

TEST(RunReport, ARunThatWasStoppedBehindItsLastTickerSaysSo) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    report.StopBefore({});
    EXPECT_EQ(report.Line(), "1 of 1 quotes, stopped");
}

TEST(RunReport, ALongListOfNamesIsCut) {
    RunReport report = Quotes();
    for (int i = 1; i <= 10; ++i) report.Tell("T" + std::to_string(i), TickerFate::Unknown);
    EXPECT_EQ(report.Line(), "0 of 10 quotes, 10 tickers unknown: T1, T2, T3, T4, T5, T6, T7, T8 and 2 more");
}

TEST(RunReport, WhereNothingCameOneLineSaysWhyAndThatNothingWasChanged) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Failed, "No reply from http://127.0.0.1:1 : could not connect");
    report.Tell("B", TickerFate::Failed, "No reply from http://127.0.0.1:1 : could not connect");
    EXPECT_EQ(report.Extent(), RunExtent::Nothing);
    EXPECT_THAT(report.Lines(),
                ElementsAre("No reply from http://127.0.0.1:1 : could not connect; nothing was changed"));
    report.Tell("A&B", TickerFate::LeftOut, "it cannot be asked for");
    EXPECT_THAT(report.Lines(), ElementsAre("No reply from http://127.0.0.1:1 : could not connect; Left out: "
                                            "it cannot be asked for; nothing was changed"));
}

TEST(RunReport, ARunDoneInPartHasALineForEachKindOfFailureAndThreeAtMost) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    report.Tell("B", TickerFate::Failed, "No reply from http://x : the reply was cut");
    report.Tell("C", TickerFate::Failed, "No reply from http://x : the reply was cut");
    EXPECT_EQ(report.Extent(), RunExtent::Partly);
    EXPECT_THAT(report.Lines(),
                ElementsAre("1 of 3 quotes", "No reply from http://x : the reply was cut (2 tickers: B, C)"));
    report.Tell("D", TickerFate::LeftOut, "no");
    report.Fail("Mine.ddq: cannot be saved (No space left on device)");
    EXPECT_THAT(report.Lines(),
                ElementsAre("1 of 4 quotes", "No reply from http://x : the reply was cut (2 tickers: B, C)",
                            "Left out: no (1 ticker: D); Mine.ddq: cannot be saved (No space left on "
                            "device)"));
}

TEST(RunReport, AStopOfTheServersWordsEndsNoLineThatGoesOn) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Failed, "Alpaca: bad key: forbidden.");
    EXPECT_THAT(report.Lines(), ElementsAre("Alpaca: bad key: forbidden; nothing was changed"));
    report.Tell("B", TickerFate::Failed, "the host says: wait ...");
    EXPECT_THAT(report.Lines(),
                ElementsAre("Alpaca: bad key: forbidden; the host says: wait ...; nothing was changed"));
    report.Tell("C", TickerFate::Stored);
    EXPECT_THAT(report.Lines(), ElementsAre("1 of 3 quotes", "Alpaca: bad key: forbidden (1 ticker: A)",
                                            "the host says: wait ... (1 ticker: B)"));
    report.Fail("Mine.ddq stays.");
    EXPECT_EQ(report.Lines().back(), "the host says: wait ... (1 ticker: B); Mine.ddq stays.");
}

TEST(RunReport, AChangeWithoutATickerIsAPart) {
    RunReport report = Quotes();
    report.Fail("No reply from http://x : could not connect");
    EXPECT_EQ(report.Extent(), RunExtent::Nothing);
    report.MarkChanged();
    EXPECT_EQ(report.Extent(), RunExtent::Partly);
}

TEST(RunReport, TheFailuresOfALaterStepJoinTheRun) {
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    RunReport later("Split calendar", "splits");
    later.Tell("B", TickerFate::Failed, "x");
    report.TakeFailures(later);
    EXPECT_THAT(report.Lines(), ElementsAre("1 of 1 quotes", "x (1 ticker: B)"));
}

TEST(RunReport, AHeadlineStandsInPlaceOfTheCounts) {
    RunReport report("Export of Mine.ddq", "rows");
    report.SetHeadline("43 rows written to /home/a/Out.txt");
    EXPECT_EQ(report.Line(), "43 rows written to /home/a/Out.txt");
}

TEST(RunReport, IsKeptWithEachTickersFate) {
    TempFolder folder;
    const FixedClock clock(std::chrono::year(2026) / 3 / 2, (16 * 60 + 5) * 60.0);
    RunReport report = Quotes();
    report.Tell("A", TickerFate::Stored);
    report.Tell("B", TickerFate::NothingNew, "quote of 02/20/26");
    report.Tell("ZZZ", TickerFate::Unknown);
    report.Tell("C", TickerFate::Failed, "No reply from http://x : the reply was cut");
    report.Tell("A&B", TickerFate::LeftOut, "no");
    ASSERT_FALSE(KeepLastRun(folder.Get(), report, clock));
    EXPECT_EQ(BytesOrEmpty(folder / "Last Run.txt"),
              "Update of Mine.ddq, 03/02/26 16:05\r\n"
              "2 of 5 quotes, 1 ticker unknown: ZZZ\r\n"
              "No reply from http://x : the reply was cut (1 ticker: C)\r\n"
              "Left out: no (1 ticker: A&B)\r\n"
              "\r\n"
              "A: stored\r\n"
              "B: nothing new: quote of 02/20/26\r\n"
              "ZZZ: unknown\r\n"
              "C: failed: No reply from http://x : the reply was cut\r\n"
              "A&B: left out: no\r\n");
}

}  // namespace
}  // namespace brantlow
