#include "history_fixture.h"
#include "indicators/history_row.h"
#include "indicators/year_plan.h"

namespace brantlow {
namespace {

class LoadSeries : public HistoryFixture {
  protected:
    WorkingSeries series;
};

using Texts = std::vector<std::string>;

TEST(YearTexts, RecentYearsEndInTheCurrentOne) {
    EXPECT_EQ(YearTexts(kTestDay, kRecentYears), (Texts{"23", "24", "25", "26"}));
}

TEST(YearTexts, WrapOverTheCentury) {
    EXPECT_EQ(YearTexts(std::chrono::year(2001) / 1 / 1, kRecentYears), (Texts{"98", "99", "00", "01"}));
    const Texts full = YearTexts(std::chrono::year(2008) / 5 / 5, kFullYears);
    ASSERT_EQ(full.size(), 21U);
    EXPECT_EQ(full.front(), "88");
    EXPECT_EQ(full[12], "00");
    EXPECT_EQ(full.back(), "08");
}

TEST_F(LoadSeries, TwoYearFilesOf250And100RowsGive349Bars) {
    // The two oldest files hold the rows, so that no missing file stands before them.
    WriteYear("AB", "23", Rows(250, 1));
    WriteYear("AB", "24", Rows(100, 1001));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 349U);
    EXPECT_EQ(series.LastRowRead, 349U);
    EXPECT_EQ(series.ClosePrice[1], 1);
    EXPECT_EQ(series.ClosePrice[249], 249);
    EXPECT_EQ(series.ClosePrice[250], 1001);  // the year's first row stands where the last one stood
    EXPECT_EQ(series.ClosePrice[349], 1100);
}

TEST_F(LoadSeries, WithoutTheOldestYearTheFirstRowLandsOnElementZero) {
    WriteYear("AB", "24", Rows(3, 10));
    WriteYear("AB", "25", Rows(2, 20));
    WriteYear("AB", "26", Rows(2, 30));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.ClosePrice[0], 10);
    EXPECT_EQ(series.ClosePrice[1], 11);
    EXPECT_EQ(series.ClosePrice[2], 20);
    EXPECT_EQ(series.ClosePrice[3], 30);
    EXPECT_EQ(series.ClosePrice[4], 31);
    EXPECT_EQ(series.BarCount, 4U);
}

TEST_F(LoadSeries, FullLoadReadsTwentyOneYears) {
    WriteYear("AB", "05", Rows(5, 1));
    WriteYear("AB", "06", Rows(2, 10));
    WriteYear("AB", "16", Rows(2, 20));
    WriteYear("AB", "26", Rows(2, 30));
    LoadFullSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 4U);
    EXPECT_EQ(series.ClosePrice[1], 10);
    EXPECT_EQ(series.ClosePrice[2], 20);
    EXPECT_EQ(series.ClosePrice[3], 30);
    EXPECT_EQ(series.ClosePrice[4], 31);
}

TEST_F(LoadSeries, MissingNewestYearTakesTheOpenOfTheNewestBar) {
    WriteYear("AB", "23", Rows(3, 1));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 3U);
    EXPECT_EQ(series.OpenPrice.State(2), ElementState::Written);
    EXPECT_EQ(series.OpenPrice.State(3), ElementState::Emptied);
    EXPECT_EQ(series.OpenPrice[3], 0);
    EXPECT_EQ(series.OpenPrice.State(4), ElementState::Emptied);
    EXPECT_EQ(series.OpenPrice.State(5), ElementState::NeverWritten);
}

TEST_F(LoadSeries, OpenBehindTheLastRowIsEmptied) {
    WriteYear("AB", "26", Rows(3, 1));
    series.OpenPrice.Set(3, 5);
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.OpenPrice[2], 98);
    EXPECT_EQ(series.OpenPrice.State(3), ElementState::Emptied);
}

TEST_F(LoadSeries, TickerWithoutFilesLeavesNoBars) {
    series.ClosePrice.Set(1, 5);
    LoadRecentSeries(source, "NONE", series);
    EXPECT_EQ(series.BarCount, 0U);
    EXPECT_EQ(series.ClosePrice[1], 5);
    EXPECT_EQ(series.OpenPrice.State(0), ElementState::Emptied);
    EXPECT_EQ(series.OpenPrice.State(1), ElementState::Emptied);
}

TEST_F(LoadSeries, OneRowInTheOldestYearIsOneBar) {
    WriteYear("AB", "23", Rows(1, 7));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 1U);
    EXPECT_EQ(series.ClosePrice[1], 7);
}

TEST_F(LoadSeries, TickersThatNoFileNameCanHoldHaveNoBars) {
    WriteYear("AB", "23", Rows(3, 1));
    for (const std::string& ticker : {std::string("../x/AB"), std::string("a/b"), std::string(".."),
                                      std::string(""), std::string("A\0B", 3), std::string(5000, 'A'),
                                      std::string("CON"), std::string("A*"), std::string("?B")}) {
        LoadRecentSeries(source, ticker, series);
        EXPECT_EQ(series.BarCount, 0U) << ticker;
    }
}

TEST_F(LoadSeries, FolderInPlaceOfAFileIsNoMissingFile) {
    std::filesystem::create_directory(quoteFolder + "AB.24");
    WriteYear("AB", "23", Rows(3, 1));
    const Failure failure = LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(failure.file, Path(quoteFolder + "AB.24"));
    EXPECT_EQ(series.BarCount, 0U);
}

TEST_F(LoadSeries, ShortRowKeepsTheOldContentsOfItsMissingFields) {
    WriteYear("LONG", "23", Rows(3, 50));
    WriteYear("AB", "23", "\"05/05/23\",\"10:00\",7\r\n\r\n\"06/06/23\"\r\n");
    LoadRecentSeries(source, "LONG", series);
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 3U);
    EXPECT_EQ(series.ClosePrice[1], 7);
    EXPECT_EQ(series.LowPrice[1], 1);
    EXPECT_EQ(series.OpenPrice.State(1), ElementState::Emptied);
    EXPECT_EQ(series.QuoteDate[2], "");
    EXPECT_EQ(series.ClosePrice[2], 51);
    EXPECT_EQ(series.QuoteDate[3], "06/06/23");
    EXPECT_EQ(series.QuoteTime[3], "16:00");
}

TEST_F(LoadSeries, FieldsBehindTheNineteenthAreIgnored) {
    std::string line = Row(5);
    line.resize(line.size() - 2);
    for (int i = 0; i < 281; ++i) line += ",777";
    WriteYear("AB", "23", line + "\r\n");
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 1U);
    EXPECT_EQ(series.ClosePrice[1], 5);
    EXPECT_EQ(series.MarketCap[1], 1234.5);
}

TEST_F(LoadSeries, ReadsLinesThatEndInLfAloneOrNotAtAll) {
    WriteYear("AB", "23",
              "\"a1/b\",\"\",5,,,,,,,,,\"\",\"\",,,,,,98\n\"a2/b\",\"\",6,,,,,,,,,\"\",\"\",,,,,,97");
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.QuoteDate[2], "a2/b");
    EXPECT_EQ(series.ClosePrice[2], 6);
}

TEST_F(LoadSeries, JunkBytesReadAsZeros) {
    WriteYear("AB", "23", std::string("\x00\xff\x80,\x1a,\"x\",--,1e999\r\n", 20) + Row(4));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.ClosePrice[1], 0);
    EXPECT_EQ(series.HighPrice[1], 0);
    EXPECT_EQ(series.ClosePrice[2], 4);
}

TEST_F(LoadSeries, LineOfTenMegabytesIsOneRow) {
    WriteYear("AB", "23", Row(4) + std::string(10U << 20U, 'x') + "\r\n" + Row(6));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 3U);
    EXPECT_EQ(series.ClosePrice[3], 6);
}

TEST_F(LoadSeries, StopsAtElement18000) {
    WriteYear("AB", "23", Rows(10000, 1));
    WriteYear("AB", "24", Rows(10000, 20001));
    WriteYear("AB", "25", Rows(5, 5));
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 18000U);
    EXPECT_EQ(series.LastRowRead, 18000U);
    EXPECT_EQ(series.ClosePrice[17999], 20001 + 7999);
    EXPECT_EQ(series.ClosePrice[18000], 5);  // the next year overwrites the last row kept
}

TEST_F(LoadSeries, LongerTickerLeavesItsBarsAboveBarCount) {
    WriteYear("LONG", "23", Rows(10, 100));
    WriteYear("AB", "23", Rows(4, 1));
    LoadRecentSeries(source, "LONG", series);
    LoadRecentSeries(source, "AB", series);
    EXPECT_EQ(series.BarCount, 4U);
    EXPECT_EQ(series.ClosePrice[5], 104);
    EXPECT_EQ(series.QuoteDate[10], "01/02/23");
}

TEST_F(LoadSeries, LoadSeriesForTakesTheRoadOfItsInterval) {
    WriteYear("AB", "23", Rows(40, 1));
    LoadSeriesFor(source, "AB", Interval::Daily, series);
    EXPECT_EQ(series.BarCount, 40U);
    EXPECT_EQ(series.LastBar, 40U);
    // With all years in view the oldest is missing: element 0 takes the first row and 39 bars are left.
    LoadSeriesFor(source, "AB", Interval::Weekly, series);
    EXPECT_EQ(series.BarCount, 8U);
    EXPECT_EQ(series.ClosePrice[1], 6);
    EXPECT_EQ(series.ClosePrice[8], 40);
    LoadSeriesFor(source, "AB", Interval::Monthly, series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.ClosePrice[1], 21);
    EXPECT_EQ(series.LastBar, 2U);
}

TEST_F(LoadSeries, AYearFileThatCannotBeReadIsAFailureAndTheSeriesStays) {
    WriteYear("KO", "26", Rows(3, 10));
    ASSERT_FALSE(LoadRecentSeries(source, "KO", series));
    const std::size_t bars = series.BarCount;
    std::filesystem::create_directory(quoteFolder + "AB.25");
    WriteYear("AB", "26", Rows(5, 90));
    for (const auto load : {LoadRecentSeries, LoadFullSeries}) {
        const Failure failure = load(source, "AB", series);
        EXPECT_EQ(failure.kind, FailureKind::Read);
        EXPECT_EQ(failure.file, Path(quoteFolder + "AB.25"));
        EXPECT_EQ(failure.ticker, "AB");
        EXPECT_EQ(failure.cause, std::errc::is_a_directory);
        EXPECT_EQ(series.BarCount, bars);
        EXPECT_EQ(series.ClosePrice[bars], 12);
    }
}

}  // namespace
}  // namespace brantlow
