#include "practice/practice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "practice/practice_prices.h"
#include "store/columns.h"
#include "store/history_record.h"
#include "store/quote_table.h"
#include "store/store_fixture.h"
#include "store/year_files.h"
#include "support/source_folder.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const Path kShipped = SourceFolder() / "assets" / "practice";

std::vector<std::string_view> Lines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    LineReader reader(bytes);
    for (std::string_view line; reader.Next(line);) lines.push_back(line);
    return lines;
}

int DaysBetween(const Date& from, const Date& to) {
    return static_cast<int>((std::chrono::sys_days{to} - std::chrono::sys_days{from}).count());
}

// The records of a ticker's year files, oldest first.
std::vector<HistoryRecord> StoredHistory(const std::string& quoteFolder, std::string_view ticker,
                                         int newestYear) {
    std::vector<HistoryRecord> records;
    constexpr int kYears = 30;
    for (int year = newestYear - kYears; year <= newestYear; ++year) {
        const std::string digits = std::to_string(year).substr(2);
        const auto file = YearFilePath(quoteFolder, ticker, digits);
        const std::string bytes = BytesOrEmpty(*file);
        for (const std::string_view line : Lines(bytes)) records.push_back(ParseHistoryLine(line));
    }
    return records;
}

// A folder with its own small set of prices, and a place to fill.
class PracticeTest : public ::testing::Test {
  protected:
    PracticeTest() {
        folder.Write("prices/tickers.csv", "Ticker,Name,Exchange\nAB,\"Ab, Inc.\",NYSE\nC.D,C & D,NASDAQ\n");
        // 2019-12-30 to 2020-01-03, a Monday to a Friday.
        folder.Write("prices/prices/AB.csv",
                     "Date,Open,High,Low,Close,Volume\n"
                     "2019-12-30,1.5,2,1,1.0005,1000\n"
                     "2019-12-31,10,11.25,9.9999,10.5,2000\n"
                     "2020-01-02,20,21,19,20.125,3000\n"
                     "2020-01-03,30,31,29,30,4000\n");
        folder.Write("prices/prices/C.D.csv",
                     "Date,Open,High,Low,Close,Volume\n2020-01-02,5,5,5,5,0\n2020-01-03,6,6,6,6,1\n");
    }

    PracticeTarget Target(const Date& today, bool replace = false) const {
        return {{folder.Root() / "app", "now"},
                folder.Root() / "app/Data",
                (folder.Root() / "app/Quotes/EOD").string() + "/",
                today,
                replace};
    }
    PracticeResult Fill(const Date& today, bool replace = false) const {
        return FillPractice(folder.Root() / "prices", Target(today, replace));
    }

    QuoteTable ShownTable() const {
        QuoteTable table;
        const std::string bytes = folder.Read("app/Data/Practice.ddq");
        for (const std::string_view line : Lines(bytes)) table.AppendLine(line);
        return table;
    }

    TestFolder folder;
};

TEST(DaysToMove, IsWholeWeeksAndLandsInTheSevenDaysFromTheEarliest) {
    const Date friday = Day(2020, 1, 3);
    struct Row {
        Date earliest;
        int days;
    };
    for (const Row& row : {Row{Day(2020, 1, 3), 0}, Row{Day(2020, 1, 2), 0}, Row{Day(2019, 12, 28), 0},
                           Row{Day(2019, 12, 27), -7}, Row{Day(2020, 1, 4), 7}, Row{Day(2020, 1, 10), 7},
                           Row{Day(2020, 1, 11), 14}, Row{Day(2021, 1, 1), 364}, Row{Day(2021, 1, 2), 371}}) {
        EXPECT_EQ(DaysToMove(friday, row.earliest), row.days) << FormatIsoDate(row.earliest);
    }
}

TEST_F(PracticeTest, WritesTheDaysBeforeTodayIntoTheFilesOfTheirYears) {
    // Saturday 2027-01-02: the Friday moves to 2027-01-08 and the week before it holds 01-04 to 01-07.
    const PracticeResult result = Fill(Day(2027, 1, 2));
    EXPECT_EQ(result.outcome, PracticeOutcome::Filled);
    EXPECT_EQ(result.tickers, 2u);
    EXPECT_EQ(result.days, 0u);

    // Friday 2027-01-08: today itself is not written.
    EXPECT_EQ(Fill(Day(2027, 1, 8), true).days, 4u);
    EXPECT_EQ(folder.Read("app/Quotes/EOD/AB.27"),
              "\"01/04/27\",\"\",1.001,1,2,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1.5\r\n"
              "\"01/05/27\",\"\",10.5,10,11.25,2000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n"
              "\"01/07/27\",\"\",20.125,19,21,3000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,20\r\n");
    EXPECT_EQ(folder.Read("app/Quotes/EOD/C.D.27"),
              "\"01/07/27\",\"\",5,5,5,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,5\r\n");
}

TEST_F(PracticeTest, CutsAHistoryAtNewYear) {
    // Friday 2026-01-02: Monday and Tuesday are of the old year.
    EXPECT_EQ(Fill(Day(2026, 1, 2)).days, 4u);
    const std::string oldYear = folder.Read("app/Quotes/EOD/AB.25");
    const std::string newYear = folder.Read("app/Quotes/EOD/AB.26");
    ASSERT_EQ(Lines(oldYear).size(), 2u);
    ASSERT_EQ(Lines(newYear).size(), 1u);
    EXPECT_TRUE(oldYear.starts_with("\"12/29/25\","));
    EXPECT_TRUE(newYear.starts_with("\"01/01/26\","));
}

// Of AB 2027-01-07 at 20.125 after 10.5, of C.D its one day before today.
TEST_F(PracticeTest, TheTableShowsTheLastDayThatIsStored) {
    Fill(Day(2027, 1, 8));
    const QuoteTable table = ShownTable();
    struct Row {
        const char* column;
        const char* ab;
        const char* cd;
    };
    constexpr Row kRows[] = {{"Last Price", "20.125", "5.000"},      {"Change", "9.625", ""},
                             {"Change (%)", "91.667", ""},           {"Low Price", "19.000", "5.000"},
                             {"High Price", "21.000", "5.000"},      {"Volume", "3000", "0"},
                             {"Open Price", "20.000", "5.000"},      {"Previous Close", "10.500", ""},
                             {"52 Week Low", "1.000", "5.000"},      {"52 Week High", "21.000", "5.000"},
                             {"Name", "Ab, Inc.", "C & D"},          {"Exchange", "NYSE", "NASDAQ"},
                             {"Trade Date", "01/07/27", "01/07/27"}, {"Trade Time", "16:00", "16:00"}};
    for (const Row& row : kRows) {
        const std::size_t column = table.ColumnOf(row.column).value();
        EXPECT_EQ(table.Text(1, column), row.ab) << row.column;
        EXPECT_EQ(table.Text(2, column), row.cd) << row.column;
    }
    for (const char* const empty : {"Ask Price", "P/E ttm.", "Dividend", "High Alarm", "Low Alarm"}) {
        EXPECT_EQ(table.Text(1, table.ColumnOf(empty).value()), "") << empty;
    }
}

// Its prices before the split are as they were traded, seven times as high.
TEST_F(PracticeTest, TheYearBehindASplitIsShownInTheSharesOfToday) {
    folder.Write("prices/tickers.csv", "Ticker,Name,Exchange\nNFLX,N,NASDAQ\n");
    folder.Write("prices/prices/NFLX.csv",
                 "Date,Open,High,Low,Close,Volume\n"
                 "2015-07-13,700,714,693,707,1000\n"
                 "2015-07-14,700,721,686,700,1000\n"
                 "2015-07-15,100,105,98,101,7000\n"
                 "2015-07-16,101,102,99,100,7000\n");
    // The split moves to Wednesday 2027-01-06.
    Fill(Day(2027, 1, 7));
    const QuoteTable table = ShownTable();
    const auto cell = [&](const char* column) { return table.Text(1, table.ColumnOf(column).value()); };
    EXPECT_EQ(cell("Last Price"), "101.000");
    EXPECT_EQ(cell("Previous Close"), "100.000");
    EXPECT_EQ(cell("Change"), "1.000");
    EXPECT_EQ(cell("52 Week Low"), "98.000");
    EXPECT_EQ(cell("52 Week High"), "105.000");
}

TEST_F(PracticeTest, WithoutADayBeforeTodayTheTableHasEveryColumnAndOnlyNamesAndExchanges) {
    Fill(Day(2027, 1, 2));
    const std::string bytes = folder.Read("app/Data/Practice.ddq");
    std::string expected;
    for (const QuoteColumn& column : kQuoteColumns) {
        expected.append(expected.empty() ? "" : "\t").append(column.header);
    }
    // Name is column 13, Exchange column 14, 35 columns in all.
    expected += "\r\nAB" + std::string(13, '\t') + "Ab, Inc.\tNYSE" + std::string(20, '\t') + "\r\n";
    expected += "C.D" + std::string(13, '\t') + "C & D\tNASDAQ" + std::string(20, '\t') + "\r\n";
    EXPECT_EQ(bytes, expected);
}

TEST_F(PracticeTest, RefusesWhereYearFilesOfItsTickersAreAndChangesNothing) {
    folder.Write("app/Quotes/EOD/C.D.19", "mine");
    const std::vector<std::string> before = folder.Files();
    const PracticeResult result = Fill(Day(2027, 1, 8));
    EXPECT_EQ(result.outcome, PracticeOutcome::AlreadyThere);
    EXPECT_EQ(result.detail, "year files of C.D");
    EXPECT_EQ(folder.Files(), before);
    EXPECT_EQ(folder.Read("app/Quotes/EOD/C.D.19"), "mine");
}

TEST_F(PracticeTest, RefusesWhereOnlyItsTableIs) {
    folder.Write("app/Data/Practice.ddq", "mine");
    const PracticeResult result = Fill(Day(2027, 1, 8));
    EXPECT_EQ(result.outcome, PracticeOutcome::AlreadyThere);
    EXPECT_EQ(result.detail, "Practice.ddq");
    EXPECT_EQ(folder.Read("app/Data/Practice.ddq"), "mine");
}

TEST_F(PracticeTest, FilesOfOtherTickersAreNoHindrance) {
    folder.Write("app/Quotes/EOD/C.27", "other");
    folder.Write("app/Quotes/EOD/AB.X.27", "other");
    EXPECT_EQ(Fill(Day(2027, 1, 8)).outcome, PracticeOutcome::Filled);
    EXPECT_EQ(folder.Read("app/Quotes/EOD/C.27"), "other");
    EXPECT_EQ(folder.Read("app/Quotes/EOD/AB.X.27"), "other");
}

TEST_F(PracticeTest, ReplacingRemovesTheYearsThatItNoLongerHas) {
    folder.Write("app/Quotes/EOD/AB.19", "old");
    folder.Write("app/Quotes/EOD/AB.27", "old");
    folder.Write("app/Quotes/EOD/ZZ.19", "kept");
    EXPECT_EQ(Fill(Day(2027, 1, 8), true).outcome, PracticeOutcome::Filled);
    EXPECT_THAT(FileNamesIn(folder.Root() / "app/Quotes/EOD"), ElementsAre("AB.27", "C.D.27", "ZZ.19"));
}

TEST_F(PracticeTest, AMissingPriceFileLeavesTheTargetAlone) {
    std::filesystem::remove(folder.Root() / "prices/prices/C.D.csv");
    const PracticeResult result = Fill(Day(2027, 1, 8));
    EXPECT_EQ(result.outcome, PracticeOutcome::NoPrices);
    EXPECT_THAT(result.detail, HasSubstr("C.D.csv"));
    EXPECT_FALSE(std::filesystem::exists(folder.Root() / "app"));
}

TEST_F(PracticeTest, PricesThatCannotBeReadLeaveTheTargetAlone) {
    folder.Write("prices/prices/C.D.csv", "Date,Open\nnothing\n\0x,y\n");
    EXPECT_EQ(Fill(Day(2027, 1, 8)).outcome, PracticeOutcome::NoPrices);
    EXPECT_FALSE(std::filesystem::exists(folder.Root() / "app"));
}

TEST_F(PracticeTest, AFolderInPlaceOfAYearFileIsNamed) {
    std::filesystem::create_directories(folder.Root() / "app/Quotes/EOD/AB.27");
    const PracticeResult result = Fill(Day(2027, 1, 8), true);
    EXPECT_EQ(result.outcome, PracticeOutcome::Failed);
    EXPECT_THAT(result.detail, HasSubstr("Quotes/EOD/AB"));
    EXPECT_FALSE(std::filesystem::exists(folder.Root() / "app/Data/Practice.ddq"));
}

TEST(PracticeTickers, AListThatCannotBeReadIsEmptyAndBadRowsAreLeftOut) {
    const TestFolder folder;
    EXPECT_TRUE(ReadPracticeTickers(folder.Root()).empty());
    folder.Write("tickers.csv", "Ticker,Name,Exchange\n../up,Up,NYSE\nCON,Device,NYSE\nX\nOK,Fine,NYSE");
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(folder.Root());
    ASSERT_EQ(tickers.size(), 1u);
    EXPECT_EQ(tickers[0].ticker, "OK");
}

TEST(ShippedPractice, EveryTickerHasNameExchangeAndPrices) {
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(kShipped);
    ASSERT_EQ(tickers.size(), 43u);
    for (const PracticeTicker& row : tickers) {
        EXPECT_FALSE(row.name.empty()) << row.ticker;
        EXPECT_FALSE(row.exchange.empty()) << row.ticker;
        EXPECT_TRUE(IsRegularFile(kShipped / "prices" / (row.ticker + ".csv"))) << row.ticker;
    }
    EXPECT_EQ(FileNamesIn(kShipped / "prices").size(), tickers.size());
}

// On every day of a week and a bit: what is stored ends shortly before today, weekdays stay what they were.
TEST(ShippedPractice, EndsRightBeforeTodayWhateverTheDay) {
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(kShipped);
    const TestFolder folder;
    const std::string quotes = folder.Folder("Quotes/EOD");
    for (int i = 0; i < 8; ++i) {
        const Date today = AddDays(Day(2026, 11, 21), i);
        FillPractice(kShipped, {{folder.Root(), "now"}, folder.Root() / "Data", quotes, today, true});
        for (const PracticeTicker& row : tickers) {
            const auto history = StoredHistory(quotes, row.ticker, 2026);
            ASSERT_GT(history.size(), 600u) << row.ticker;
            const Date newest = *ParseDate(history.back().HistoryDate);
            const std::chrono::weekday weekday{std::chrono::sys_days{newest}};
            EXPECT_LT(newest, today) << row.ticker;
            // A weekend and a holiday can lie between.
            EXPECT_LE(DaysBetween(newest, today), 4) << row.ticker << " " << FormatIsoDate(today);
            EXPECT_NE(weekday, std::chrono::Saturday) << row.ticker;
            EXPECT_NE(weekday, std::chrono::Sunday) << row.ticker;
        }
    }
}

TEST(ShippedPractice, TheSplitOfNflxFallsWithinTheSevenDaysBeforeToday) {
    const TestFolder folder;
    folder.Write("prices/tickers.csv", "Ticker,Name,Exchange\nNFLX,Netflix,NASDAQ\n");
    folder.Write("prices/prices/NFLX.csv", BytesOrEmpty(kShipped / "prices" / "NFLX.csv"));
    const std::string quotes = folder.Folder("Quotes/EOD");
    for (int i = 0; i < 8; ++i) {
        const Date today = AddDays(Day(2026, 11, 21), i);
        FillPractice(folder.Root() / "prices",
                     {{folder.Root(), "now"}, folder.Root() / "Data", quotes, today, true});
        const auto history = StoredHistory(quotes, "NFLX", 2026);
        std::size_t split = 0;
        for (std::size_t k = 1; k < history.size(); ++k) {
            if (history[k].HistoryClose < history[k - 1].HistoryClose / 6) split = k;
        }
        ASSERT_GT(split, 0u);
        // The last traded close before the split and the first after it.
        EXPECT_EQ(history[split - 1].HistoryClose, 702.6);
        EXPECT_EQ(history[split].HistoryClose, 98.13);
        const int age = DaysBetween(*ParseDate(history[split].HistoryDate), today);
        EXPECT_GE(age, 1) << FormatIsoDate(today);
        EXPECT_LE(age, 7) << FormatIsoDate(today);
    }
}

}  // namespace
}  // namespace brantlow
