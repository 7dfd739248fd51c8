#include "selector/selector_run.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/files.h"
#include "store/file_names.h"
#include "store/table_colours.h"
#include "store/table_files.h"
#include "support/condition_block.h"
#include "support/recording_person.h"
#include "support/table_lines.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

constexpr Date kToday = std::chrono::year(2024) / 6 / 14;
constexpr const char* kReport = "Error Report.txt";
// The oldest year that a run looks at, so that the first record is bar 1.
constexpr const char* kOldestRecentYear = "21";
constexpr const char* kOldestYear = "04";

class SelectorRun : public testing::Test {
  protected:
    SelectorRun() : session_(folder_.Get(), clock_, person_) {
        std::filesystem::create_directories(folder_ / "Data");
        std::filesystem::create_directories(folder_ / "Quotes");
        session_.settings.QuoteFolder = (folder_ / "Quotes").string() + "/";
    }

    void Conditions(const std::vector<Lines>& blocks) {
        std::size_t line = 0;
        for (const Lines& block : blocks)
            for (const std::string& text : block)
                session_.settings.SelectorSettings.Set(++line, Value::OfText(text));
        session_.settings.SelectorLineCount = line;
    }

    // `count` daily records whose closes `closeOf` gives for 1 to `count`. Every bar is at its 52 week high.
    void History(
        const std::string& ticker, std::size_t count, const std::string& year = kOldestRecentYear,
        const std::function<double(double)>& closeOf = [](double) { return 10.0; }) {
        std::string bytes;
        for (std::size_t i = 1; i <= count; ++i) {
            const std::string close = std::to_string(closeOf(static_cast<double>(i)));
            bytes += "\"01/04/21\",\"16:00\"," + close + "," + close + "," + close +
                     ",1000,0,0,0,0,0,\"\",\"\",0,1," + close + ",0,0," + close + "\r\n";
        }
        ASSERT_FALSE(WriteWholeFile(folder_ / "Quotes" / (ticker + "." + year), bytes));
    }

    // The evaluation table of a quote table with these tickers, made and opened as a person's is.
    void Table(const Lines& tickers) {
        QuoteTable quotes;
        quotes.AppendLine("Ticker Symbol\tLast Price");
        for (const std::string& ticker : tickers) quotes.AppendLine(ticker + "\t10.000");
        ASSERT_FALSE(CreateEvaluationFile(quotes, session_));
        const Path file = session_.DataFile(kEvaluationsName);
        ASSERT_TRUE(LoadQuoteTable(file, FileKind::Dbe, session_.settings, kToday, table_, nullptr).Done());
    }

    SelectorOutcome Run(Interval interval = Interval::Daily) {
        SelectorOutcome outcome;
        RunSelector(session_, analysis_, interval, table_, outcome);
        return outcome;
    }

    TempFolder folder_;
    FixedClock clock_{kToday};
    RecordingPerson person_;
    Session session_;
    Analysis analysis_;
    QuoteTable table_;
};

const Lines kHit = {"Hit 52 Week High"};
const Lines kMiss = {"Close Price Above LR Price", "Close Price Below LR Price"};

TEST_F(SelectorRun, ATickerWith15BarsIsNotEvaluatedAndHasEmptyCells) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 15);
    Table({"AAA"});
    const SelectorOutcome outcome = Run();
    EXPECT_EQ(analysis_.series.BarCount, 15U);
    EXPECT_EQ(outcome.shortTickers, Lines{"AAA"});
    for (std::size_t column = 1; column <= 10; ++column) EXPECT_EQ(table_.Text(1, column), "");
    EXPECT_EQ(outcome.hitsPerCondition[1], 0U);
    EXPECT_EQ(outcome.tickers, 1U);
}

TEST_F(SelectorRun, ATickerWith16To99BarsIsEvaluatedAndReportedAsShort) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 16);
    History("BBB", 99);
    History("CCC", 100);
    Table({"AAA", "BBB", "CCC"});
    const SelectorOutcome outcome = Run();
    for (std::size_t row = 1; row <= 3; ++row) EXPECT_EQ(table_.Text(row, 1), "Buy") << row;
    EXPECT_EQ(outcome.shortTickers, (Lines{"AAA", "BBB"}));
    EXPECT_EQ(outcome.hitsPerCondition[1], 3U);
    EXPECT_EQ(
        BytesOrEmpty(session_.DataFile(kReport)),
        "This report was generated because one or more Ticker Symbols has less than 100 days of data.\r\n"
        "\"AAA\"\r\n\"BBB\"\r\n");
    EXPECT_FALSE(outcome.reportError);
}

TEST_F(SelectorRun, WeeklyAHistoryOf20BarsIsNotShortAnd19Is) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 95, kOldestYear);
    History("BBB", 96, kOldestYear);
    Table({"AAA", "BBB"});
    const SelectorOutcome outcome = Run(Interval::Weekly);
    EXPECT_EQ(analysis_.series.BarCount, 20U);
    EXPECT_EQ(outcome.shortTickers, Lines{"AAA"});
    EXPECT_EQ(outcome.hitsPerCondition[1], 2U);
    EXPECT_EQ(
        BytesOrEmpty(session_.DataFile(kReport)),
        "This report was generated because one or more Ticker Symbols has less than 20 weeks of data.\r\n"
        "\"AAA\"\r\n");
}

TEST_F(SelectorRun, MonthlyAHistoryOf2BarsIsNotShortAnd1Is) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 20, kOldestYear);
    History("BBB", 21, kOldestYear);
    Table({"AAA", "BBB"});
    const SelectorOutcome outcome = Run(Interval::Monthly);
    EXPECT_EQ(analysis_.series.BarCount, 2U);
    EXPECT_EQ(outcome.shortTickers, Lines{"AAA"});
    EXPECT_EQ(outcome.hitsPerCondition[1], 0U);
    EXPECT_EQ(
        BytesOrEmpty(session_.DataFile(kReport)),
        "This report was generated because one or more Ticker Symbols has less than 2 months of data.\r\n"
        "\"AAA\"\r\n");
}

TEST_F(SelectorRun, TwoConditionsWithTheSameVerdictEachFillTheirOwnColumn) {
    Conditions({Block("Buy", kHit), Block("Buy", kMiss), Block("Buy", kHit), Block("Hold", kHit)});
    History("AAA", 120);
    Table({"AAA"});
    const SelectorOutcome outcome = Run();
    EXPECT_EQ(LineText(table_, 1), "AAA\tBuy\t\tBuy\tHold\t\t\t\t\t\t");
    EXPECT_EQ(outcome.hitsPerCondition, (std::array<std::size_t, 11>{0, 1, 0, 1, 1, 0, 0, 0, 0, 0, 0}));
}

TEST_F(SelectorRun, ABlockLeftEmptyNeverFillsItsColumn) {
    Conditions({Block("Buy", {}), Block("Sell", kHit)});
    History("AAA", 120);
    Table({"AAA"});
    Run();
    EXPECT_EQ(table_.Text(1, 1), "");
    EXPECT_EQ(table_.Text(1, 2), "Sell");
}

TEST_F(SelectorRun, AnEmptyTableEndsAtOnceWithoutReport) {
    Conditions({Block("Buy", kHit)});
    Table({});
    const SelectorOutcome outcome = Run();
    EXPECT_EQ(outcome.tickers, 0U);
    EXPECT_FALSE(outcome.stopped);
    EXPECT_TRUE(person_.progress.empty());
    EXPECT_EQ(person_.statusWords, (Lines{"Selecting", "Complete"}));
    EXPECT_FALSE(std::filesystem::exists(session_.DataFile(kReport)));
}

TEST_F(SelectorRun, ATableWithoutEvenAHeaderEndsAtOnce) {
    Conditions({Block("Buy", kHit)});
    EXPECT_EQ(Run().tickers, 0U);
    EXPECT_EQ(person_.statusWords, (Lines{"Selecting", "Complete"}));
}

TEST_F(SelectorRun, ShowsItsRowsAndProgress) {
    Conditions({Block("Buy", kHit)});
    Table({"AAA", "BBB", "CCC", "DDD"});
    std::vector<std::size_t> rowsInWork;
    for (int i = 0; i < 4; ++i)
        person_.events.push_back([this, &rowsInWork] { rowsInWork.push_back(session_.run.CurrentRow); });
    Run();
    EXPECT_EQ(person_.statusWords, (Lines{"Selecting", "1", "2", "3", "4", "Complete"}));
    EXPECT_EQ(person_.progress, (std::vector<double>{0.25, 0.5, 0.75, 1}));
    EXPECT_EQ(rowsInWork, (std::vector<std::size_t>{1, 2, 3, 4}));
    EXPECT_EQ(session_.run.CurrentRow, 0U);
    EXPECT_EQ(person_.pumps, 4);
    EXPECT_TRUE(person_.said.empty());
}

TEST_F(SelectorRun, NamesTheTickerInWorkAndThenTheSelectedOneAgain) {
    Conditions({Block("Buy", kHit)});
    Table({"AAA", "BBB", "CCC"});
    session_.CurrentTicker = "CCC";
    Lines inWork;
    for (int i = 0; i < 3; ++i)
        person_.events.push_back([this, &inWork] { inWork.push_back(session_.CurrentTicker); });
    Run();
    EXPECT_EQ(inWork, (Lines{"AAA", "BBB", "CCC"}));
    EXPECT_EQ(session_.CurrentTicker, "CCC");
    person_.events = {[this] { session_.run.ProcessCommand = kStopRun; }};
    Run();
    EXPECT_EQ(session_.CurrentTicker, "CCC");
}

TEST_F(SelectorRun, ItsReportCountsTickersAndHitsAndTellsAStop) {
    SelectorOutcome outcome;
    outcome.tickers = 43;
    outcome.hitsPerCondition[1] = 12;
    outcome.hitsPerCondition[10] = 1;
    EXPECT_EQ(ReportOf(outcome, "Mine.ddq", 43).Line(), "43 tickers, 13 hits");
    EXPECT_EQ(ReportOf(outcome, "Mine.ddq", 43).What(), "Stock Selector over Mine.ddq");
    EXPECT_TRUE(ReportOf(outcome, "Mine.ddq", 43).Tickers().empty());
    outcome.hitsPerCondition[1] = 0;
    EXPECT_EQ(ReportOf(outcome, "Mine.ddq", 1).Line(), "1 ticker, 1 hit");
    outcome.stopped = true;
    outcome.tickers = 26;
    EXPECT_EQ(ReportOf(outcome, "Mine.ddq", 43).Line(), "26 of 43 tickers, 1 hit, stopped");
    EXPECT_EQ(ReportOf({}, "Mine.ddq", 0).Line(), "0 tickers, 0 hits");
}

TEST_F(SelectorRun, AStopEndsItAtTheNextRowAndKeepsTheCellsSoFar) {
    Conditions({Block("Buy", kHit)});
    for (const char* ticker : {"AAA", "BBB", "CCC"}) History(ticker, 50);
    Table({"AAA", "BBB", "CCC"});
    person_.events = {[] {}, [this] { session_.run.ProcessCommand = kStopRun; }};
    const SelectorOutcome outcome = Run();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.tickers, 2U);
    EXPECT_EQ(table_.Text(1, 1), "Buy");
    EXPECT_EQ(table_.Text(2, 1), "Buy");
    EXPECT_EQ(table_.Text(3, 1), "");
    EXPECT_EQ(outcome.shortTickers, (Lines{"AAA", "BBB"}));
    EXPECT_EQ(
        BytesOrEmpty(session_.DataFile(kReport)),
        "This report was generated because one or more Ticker Symbols has less than 100 days of data.\r\n"
        "\"AAA\"\r\n\"BBB\"\r\n");
    EXPECT_EQ(person_.statusWords.back(), "Complete");
}

TEST_F(SelectorRun, APauseWaitsAndAResumeGoesOn) {
    Conditions({Block("Buy", kHit)});
    for (const char* ticker : {"AAA", "BBB"}) History(ticker, 100);
    Table({"AAA", "BBB"});
    person_.events = {[this] { session_.run.ProcessCommand = kPauseRun; }, [] {},
                      [this] { session_.run.ProcessCommand = kResumeRun; }};
    const SelectorOutcome outcome = Run();
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.hitsPerCondition[1], 2U);
    EXPECT_EQ(session_.run.ProcessCommand, kRunning);
    EXPECT_EQ(person_.pumps, 4);
}

TEST_F(SelectorRun, AStopLeftFromAnEarlierRunDoesNotCount) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 100);
    Table({"AAA"});
    session_.run.ProcessCommand = kStopRun;
    EXPECT_FALSE(Run().stopped);
    EXPECT_EQ(table_.Text(1, 1), "Buy");
}

TEST_F(SelectorRun, ARunWithoutShortTickersLeavesTheReportBeforeAsItWas) {
    ASSERT_FALSE(WriteWholeFile(session_.DataFile(kReport), "old\r\n\"ZZZ\"\r\n"));
    Conditions({Block("Buy", kHit)});
    History("AAA", 100);
    Table({"AAA"});
    Run();
    EXPECT_EQ(BytesOrEmpty(session_.DataFile(kReport)), "old\r\n\"ZZZ\"\r\n");
}

TEST_F(SelectorRun, TickersWithoutFilesAreShortAndStopNothing) {
    Conditions({Block("Buy", kHit)});
    History("BBB", 100);
    const std::string longName(5000, 'X');
    Table({"AAA", "../../etc/passwd", "*", "", longName, "BBB"});
    const SelectorOutcome outcome = Run();
    EXPECT_EQ(outcome.tickers, 6U);
    EXPECT_EQ(outcome.shortTickers, (Lines{"AAA", "../../etc/passwd", "*", "", longName}));
    EXPECT_EQ(table_.Text(6, 1), "Buy");
    EXPECT_EQ(outcome.hitsPerCondition[1], 1U);
}

TEST_F(SelectorRun, ATickerThatStandsTwiceIsReportedTwice) {
    Conditions({Block("Buy", kHit)});
    Table({"AAA", "AAA"});
    EXPECT_EQ(Run().shortTickers, (Lines{"AAA", "AAA"}));
}

TEST_F(SelectorRun, TheReportThatCannotBeWrittenIsToldAndTheCellsStand) {
    Conditions({Block("Buy", kHit)});
    History("AAA", 50);
    Table({"AAA"});
    std::filesystem::remove_all(session_.DataFolder());
    const SelectorOutcome outcome = Run();
    EXPECT_TRUE(outcome.reportError);
    EXPECT_EQ(table_.Text(1, 1), "Buy");
}

struct ColourCase {
    const char* ticker;
    std::function<double(double)> closeOf;
    CellStyle buy, sell;
};

TEST_F(SelectorRun, ColoursHitsByTheirActionAndTheShortTrend) {
    Conditions({Block("Buy", kHit), Block("Sell", kHit), Block("Hold", kHit), Block("Sell", kMiss)});
    const std::vector<ColourCase> cases = {
        {"RISES", [](double i) { return 100 + i * i / 100; }, CellStyle::Buy, CellStyle::RecoveringSell},
        {"FADES", [](double i) { return 500 - i * i / 100; }, CellStyle::FadingBuy, CellStyle::Sell}};
    Lines tickers;
    for (const ColourCase& row : cases) {
        History(row.ticker, 120, kOldestRecentYear, row.closeOf);
        tickers.emplace_back(row.ticker);
    }
    Table(tickers);
    Run();
    for (std::size_t row = 1; row <= cases.size(); ++row) {
        EXPECT_EQ(table_.Style(row, 1), cases[row - 1].buy) << row;
        EXPECT_EQ(table_.Style(row, 2), cases[row - 1].sell) << row;
        EXPECT_EQ(table_.Style(row, 3), CellStyle::Hold) << row;
        EXPECT_EQ(table_.Style(row, 4), CellStyle::EmptyResult) << row;
    }
}

TEST_F(SelectorRun, AnUnwrittenShortTrendKeepsThePlainColours) {
    Conditions({Block("Buy", kHit), Block("Sell", kHit)});
    History("AAA", 16, kOldestRecentYear, [](double i) { return 100 + i * i; });
    Table({"AAA"});
    Run();
    EXPECT_EQ(table_.Style(1, 1), CellStyle::Buy);
    EXPECT_EQ(table_.Style(1, 2), CellStyle::Sell);
}

TEST_F(SelectorRun, HitColoursAreThoseOfTheRun) {
    struct Row {
        CellStyle style;
        Rgb background;
    };
    constexpr Row kRows[] = {{CellStyle::Buy, {10, 200, 10}},
                             {CellStyle::Sell, {200, 10, 10}},
                             {CellStyle::Hold, {230, 230, 20}},
                             {CellStyle::RecoveringSell, {200, 150, 10}},
                             {CellStyle::FadingBuy, {150, 200, 10}}};
    for (const Row& row : kRows) EXPECT_EQ(ColoursOf(row.style).background.rgb, row.background);
}

TEST_F(SelectorRun, ReadsTheIntervalsOfTheirWords) {
    for (const auto& [interval, word] :
         {std::pair{Interval::Daily, "Daily"}, std::pair{Interval::Weekly, "Weekly"},
          std::pair{Interval::Monthly, "Monthly"}}) {
        EXPECT_EQ(IntervalOf(word), interval);
    }
    EXPECT_FALSE(IntervalOf("daily"));
    EXPECT_FALSE(IntervalOf(""));
}

}  // namespace
}  // namespace brantlow
