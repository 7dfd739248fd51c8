#include "splits/split_calendar.h"

#include "splits/splits_fixture.h"
#include "support/recording_person.h"

namespace brantlow {
namespace {

using std::chrono::year;

// The tests take place on Monday, March 2, 2026.
class SplitCalendarTest : public SplitsFixture {
  protected:
    SplitCalendarTest() { session.settings.QuoteFolder = quoteFolder; }

    static std::string PageRow(const std::string& date, const std::string& ticker, const std::string& ratio) {
        return "<tr><td valign=middle>" + date + "</td><td><a href=\"q?s=" + ticker + "&d=t\">" + ticker +
               "</a></td><td valign=middle>" + ratio + "</td></tr>\n";
    }
    void WriteLog(std::string_view bytes) const {
        ASSERT_FALSE(WriteWholeFile(session.AppPath / kSplitLogName, bytes));
    }
    std::string Log() const { return BytesOrEmpty(session.AppPath / kSplitLogName); }
    void WriteHalving(const std::string& ticker) const {
        Write(ticker + ".26",
              Day("01/02/26", "99", "1") + Day("02/26/26", "50", "1000") + Day("02/27/26", "25", "3000"));
    }
    bool IsRestated(const std::string& ticker) const {
        return Read(ticker + ".26").find("\"02/26/26\",\"16:00\",25,25,25,2000,") == 0;
    }
    SplitCheck Check(std::string_view page) { return CheckSplitCalendar(session, page, "", series); }

    RecordingPerson person;
    Session session{folder.Get(), clock, person};
};

TEST_F(SplitCalendarTest, LogsAndAdjustsASplitOfThePage) {
    WriteHalving("ACME");
    const SplitCheck check = Check(PageRow("Feb 27", "ACME", "2-1"));
    EXPECT_EQ(Log(), "\"ACME\",\"02/27\",2\r\n");
    EXPECT_EQ(check.due, 1U);
    EXPECT_EQ(check.adjusted, 1U);
    EXPECT_FALSE(check.error);
    EXPECT_TRUE(IsRestated("ACME"));
    EXPECT_TRUE(person.said.empty());
}

TEST_F(SplitCalendarTest, RepeatedRunsDoNoHarm) {
    WriteHalving("ACME");
    Check(PageRow("Feb 27", "ACME", "2-1"));
    const std::string history = Read("ACME.26");
    const SplitCheck again = Check(PageRow("Feb 27", "ACME", "2-1"));
    EXPECT_EQ(again.due, 1U);
    EXPECT_EQ(again.adjusted, 0U);
    EXPECT_EQ(Read("ACME.26"), history);
    EXPECT_EQ(Log(), "\"ACME\",\"02/27\",2\r\n");
}

TEST_F(SplitCalendarTest, SplitsOfTodayOrLaterWaitForALaterRun) {
    WriteHalving("ACME");
    WriteHalving("BETA");
    const SplitCheck check = Check(PageRow("Mar 2", "ACME", "2-1") + PageRow("Mar 9", "BETA", "2-1"));
    EXPECT_EQ(check.due, 0U);
    EXPECT_FALSE(IsRestated("ACME"));
    EXPECT_FALSE(IsRestated("BETA"));
    EXPECT_EQ(Log(), "\"ACME\",\"03/02\",2\r\n\"BETA\",\"03/09\",2\r\n");
    // The windows live on: a look for each split of the log, and the files are written beside them.
    EXPECT_EQ(person.pumps, 2);
    EXPECT_EQ(person.beside, 1);

    clock.Set(year(2026) / 3 / 3, 0);
    EXPECT_EQ(Check("").adjusted, 1U);
    EXPECT_TRUE(IsRestated("ACME"));
    EXPECT_FALSE(IsRestated("BETA"));
}

TEST_F(SplitCalendarTest, ASplitListedOnTwoDaysForTheSameTickerIsLoggedOnce) {
    Check(PageRow("Mar 2", "ACME", "2-1") + PageRow("Mar 4", "ACME", "3-1"));
    EXPECT_EQ(Log(), "\"ACME\",\"03/02\",2\r\n");
    Check(PageRow("Mar 5", "ACME", "4-1"));
    EXPECT_EQ(Log(), "\"ACME\",\"03/02\",2\r\n");
}

TEST_F(SplitCalendarTest, AnEntryOlderThanFourDaysDropsOutAtTheNextRun) {
    WriteLog("\"OLD\",\"02/25\",2\r\n\"FOUR\",\"02/26\",2\r\n\"NEW\",\"03/06\",1.5\r\n");
    Check("");
    EXPECT_EQ(Log(), "\"FOUR\",\"02/26\",2\r\n\"NEW\",\"03/06\",1.5\r\n");
}

TEST_F(SplitCalendarTest, AnEmptyPageLeavesTheLogAsItWasButForAgeing) {
    const std::string log = "\"ACME\",\"03/02\",2\r\n\"BETA\",\"02/27\",0.25\r\n";
    WriteLog(log);
    Check("");
    EXPECT_EQ(Log(), log);
    Check("<html>Service unavailable</html>");
    EXPECT_EQ(Log(), log);
}

TEST_F(SplitCalendarTest, AnAgedOutLogIsNone) {
    WriteLog("\"OLD\",\"01/05\",2\r\n");
    Check("");
    EXPECT_FALSE(IsRegularFile(session.AppPath / kSplitLogName));
    EXPECT_FALSE(Check("").error) << "no log, no page";
}

TEST_F(SplitCalendarTest, FurtherSplitsThanAHundredAreNotHeld) {
    std::string log;
    for (int i = 1; i <= 100; ++i) log += "\"T" + std::to_string(i) + "\",\"03/05\",2\r\n";
    WriteLog(log);
    Check(PageRow("Mar 5", "MORE", "2-1"));
    EXPECT_EQ(Log(), log);
    WriteLog(log + "\"T101\",\"03/05\",2\r\n");
    Check("");
    EXPECT_EQ(Log(), log) << "a longer log is read up to its hundredth line";
    std::string page;
    for (int i = 1; i <= 102; ++i) page += PageRow("Mar 5", "P" + std::to_string(i), "2-1");
    WriteLog("");
    Check(page);
    EXPECT_EQ(ReadSplitLog(session.AppPath).size(), 100U);
    EXPECT_EQ(ReadSplitLog(session.AppPath).back().ticker, "P100");
}

TEST_F(SplitCalendarTest, OneForFourIsAQuarter) {
    Write("ACME.26", Day("01/02/26", "99", "1") + Day("02/26/26", "2", "1000") + Day("02/27/26", "8", "250"));
    EXPECT_EQ(Check(PageRow("Feb 27", "ACME", "1-4")).adjusted, 1U);
    EXPECT_EQ(Log(), "\"ACME\",\"02/27\",0.25\r\n");
    EXPECT_THAT(Read("ACME.26"), testing::StartsWith("\"02/26/26\",\"16:00\",8,8,8,250,11,1"));
}

TEST_F(SplitCalendarTest, AThirdKeepsItsValueInTheLog) {
    Write("ACME.26", Day("01/02/26", "99", "1") + Day("02/26/26", "2", "900") + Day("02/27/26", "6", "300"));
    Check(PageRow("Mar 3", "ACME", "1-3"));
    clock.Set(year(2026) / 3 / 4, 0);
    EXPECT_EQ(Check("").adjusted, 1U);
}

TEST_F(SplitCalendarTest, ARatioOfTenToOneHasNoEffect) {
    Write("ACME.26", Day("01/02/26", "99", "1") + Day("02/26/26", "100", "1") + Day("02/27/26", "10", "10"));
    const std::string before = Read("ACME.26");
    const SplitCheck check = Check(PageRow("Feb 27", "ACME", "10-1"));
    EXPECT_EQ(Log(), "\"ACME\",\"02/27\",1\r\n");
    EXPECT_EQ(check.due, 1U);
    EXPECT_EQ(check.adjusted, 0U);
    EXPECT_EQ(Read("ACME.26"), before);
}

TEST_F(SplitCalendarTest, TheTurnOfTheYearIsComparedAsText) {
    clock.Set(year(2027) / 1 / 2, 0);
    WriteLog("\"ACME\",\"12/30\",2\r\n\"BETA\",\"01/01\",2\r\n");
    const SplitCheck check = Check("");
    EXPECT_EQ(Log(), "\"ACME\",\"12/30\",2\r\n") << "four days before is 12/29, and 01/01 is less as text";
    EXPECT_EQ(check.due, 0U) << "12/30/27 is not before 01/02/27";
}

TEST_F(SplitCalendarTest, DatesTakeTheFormOfTheLog) {
    struct Line {
        std::string date;
        std::string form;
    };
    const std::vector<Line> lines = {{"Mar 2", "03/02"},         {"March 12", "03/12"},
                                     {"2-Mar", "03/02"},         {"3/5", "03/05"},
                                     {"03/05", "03/05"},         {"Mar 2, 2026", "03/02"},
                                     {"3/5/26", "03/05"},        {"Feb 29", "Feb 29"},
                                     {"Announced", "Announced"}, {"", ""}};
    for (const Line& line : lines) EXPECT_EQ(MonthAndDay(line.date, kSplitTestDay), line.form) << line.date;
    EXPECT_EQ(MonthAndDay("Feb 29", year(2028) / 3 / 2), "02/29");
}

TEST_F(SplitCalendarTest, ADamagedLogLosesOnlyItsDamagedLines) {
    WriteLog("\r\n,,\r\n\"ACME\",\"03/02\",2\r\n\"BETA\"\r\n\"GAMMA\",\"03/05\",x");
    const std::vector<LoggedSplit> expected = {{"ACME", "03/02", 2}, {"BETA", "", 0}, {"GAMMA", "03/05", 0}};
    EXPECT_EQ(ReadSplitLog(session.AppPath), expected);
}

TEST_F(SplitCalendarTest, ALogCutAnywhereIsRead) {
    const std::string log = "\"ACME\",\"03/02\",2\r\n\"BETA\",\"03/05\",1.5\r\n";
    for (std::size_t length = 0; length <= log.size(); ++length) {
        WriteLog(log.substr(0, length));
        EXPECT_LE(ReadSplitLog(session.AppPath).size(), 2U) << length;
    }
    EXPECT_EQ(ReadSplitLog(session.AppPath).size(), 2U);
}

TEST_F(SplitCalendarTest, ATickerOfThePageNeverBecomesAPath) {
    WriteHalving("ACME");
    const std::string before = Read("ACME.26");
    const SplitCheck check = Check(PageRow("Feb 27", "../Quotes/ACME", "2-1") +
                                   PageRow("Feb 27", "a\",\"b", "2-1") + PageRow("Feb 27", "x\ny", "2-1"));
    EXPECT_EQ(check.adjusted, 0U);
    EXPECT_EQ(Read("ACME.26"), before);
    EXPECT_EQ(Log(), "\"../Quotes/ACME\",\"02/27\",2\r\n\"a,b\",\"02/27\",2\r\n\"xy\",\"02/27\",2\r\n");
    EXPECT_EQ(ReadSplitLog(session.AppPath).size(), 3U);
}

TEST_F(SplitCalendarTest, AFactorWithoutBandIsLoggedAndHasNoEffect) {
    WriteHalving("ACME");
    EXPECT_EQ(Check(PageRow("Feb 27", "ACME", "2-x")).adjusted, 0U);
    EXPECT_EQ(Log(), "\"ACME\",\"02/27\",0\r\n");
    EXPECT_FALSE(IsRestated("ACME"));
}

TEST_F(SplitCalendarTest, LowMemoryStopsTheRunAndTheCheckGoesOn) {
    WriteHalving("ACME");
    const std::string meminfo = "MemTotal: 1000 kB\nMemAvailable: 54 kB\nSwapTotal: 0 kB\nSwapFree: 0 kB\n";
    const SplitCheck check = CheckSplitCalendar(session, PageRow("Feb 27", "ACME", "2-1"), meminfo, series);
    EXPECT_EQ(session.run.ProcessCommand, kStopRun);
    EXPECT_EQ(person.said.size(), 1U);
    EXPECT_EQ(check.adjusted, 1U);
}

TEST_F(SplitCalendarTest, TheWindowHasItsWords) {
    EXPECT_EQ(kAdjustSplitsText, "Adjusting for Stock Splits");
    EXPECT_EQ(kSplitCalendarPath, "/c/s.html");
}

TEST_F(SplitCalendarTest, TheSelectedTickerIsTheSameAfterwards) {
    WriteHalving("ACME");
    session.CurrentTicker = "SEL";
    Check(PageRow("Feb 27", "ACME", "2-1"));
    EXPECT_EQ(session.CurrentTicker, "SEL");
}

TEST_F(SplitCalendarTest, AWorkFileLeftFromBeforeIsRemoved) {
    ASSERT_FALSE(WriteWholeFile(session.AppPath / "Split.txt", "old"));
    Check("");
    EXPECT_FALSE(IsRegularFile(session.AppPath / "Split.txt"));
}

TEST_F(SplitCalendarTest, TellsWhatWasDoneInOneLine) {
    WriteHalving("ACME");
    const SplitCheck check = Check(PageRow("Feb 27", "ACME", "2-1") + PageRow("Mar 9", "LATER", "3-2"));
    EXPECT_EQ(check.report.Line(), "1 of 1 splits restated, 2 in the log");
    EXPECT_EQ(check.report.Extent(), RunExtent::Whole);
    EXPECT_TRUE(check.isChanged);
    ASSERT_EQ(check.report.Tickers().size(), 1U);
    EXPECT_EQ(TickerLine(check.report.Tickers().front()), "ACME: stored");
}

TEST_F(SplitCalendarTest, TellsOfALineThatWasCutOff) {
    WriteHalving("ACME");
    Write("ACME.26", Read("ACME.26") + "\"03/01/26\",\"\",2");
    const SplitCheck check = Check(PageRow("Feb 27", "ACME", "2-1"));
    EXPECT_EQ(check.report.Line(),
              "1 of 1 splits restated, 1 in the log, the half line at the end of ACME.26 was taken out");
    EXPECT_EQ(Read("ACME.26").find("03/01/26"), std::string::npos);
}

TEST_F(SplitCalendarTest, ACheckThatFindsNothingNewChangesNothing) {
    WriteHalving("ACME");
    Check(PageRow("Feb 27", "ACME", "2-1"));
    EXPECT_FALSE(Check(PageRow("Feb 27", "ACME", "2-1")).isChanged);
}

}  // namespace
}  // namespace brantlow
