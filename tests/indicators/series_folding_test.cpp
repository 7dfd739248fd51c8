#include <gtest/gtest.h>

#include "indicators/history_row.h"
#include "indicators/working_series.h"

namespace brantlow {
namespace {

// Bar i of every number series is i, plus its place in the record divided by 100; texts are told by index.
WorkingSeries Numbered(std::size_t bars) {
    WorkingSeries series;
    for (std::size_t i = 1; i <= bars; ++i) {
        for (const NumberField& field : kNumberFields) {
            (series.*field.series).Set(i, static_cast<double>(i) + static_cast<double>(field.field) / 100);
        }
        for (const TextField& field : kTextFields) {
            (series.*field.series).Set(i, std::to_string(i) + "/" + std::to_string(field.field));
        }
    }
    series.BarCount = bars;
    return series;
}

void SetAll(NumberSeries& series, std::initializer_list<double> values) {
    std::size_t i = 1;
    for (const double value : values) series.Set(i++, value);
}

TEST(WindowSeries, ZeroKeepsTheNewest279) {
    WorkingSeries series = Numbered(5000);
    WindowSeries(0, series);
    EXPECT_EQ(series.BarCount, 279U);
    EXPECT_EQ(series.LastBar, 279U);
    for (const NumberField& field : kNumberFields) {
        const double part = static_cast<double>(field.field) / 100;
        EXPECT_EQ((series.*field.series)[1], 4722 + part) << field.name;
        EXPECT_EQ((series.*field.series)[279], 5000 + part) << field.name;
        EXPECT_EQ((series.*field.series)[280], 280 + part) << field.name;
    }
    for (const TextField& field : kTextFields) {
        EXPECT_EQ((series.*field.series)[279], "5000/" + std::to_string(field.field)) << field.name;
    }
}

TEST(WindowSeries, OneOn5000BarsKeepsThree) {
    WorkingSeries series = Numbered(5000);
    WindowSeries(1, series);
    EXPECT_EQ(series.BarCount, 3U);
    EXPECT_EQ(series.LastBar, 3U);
    EXPECT_EQ(series.ClosePrice[1], 4998.02);
}

TEST(WindowSeries, OneOnTwoBarsKeepsTwo) {
    WorkingSeries series = Numbered(2);
    WindowSeries(1, series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.LastBar, 2U);
    EXPECT_EQ(series.ClosePrice[1], 1.02);
}

TEST(WindowSeries, RequestTable) {
    struct Row {
        double request;
        std::size_t bars;
        std::size_t kept;
    };
    constexpr Row kRows[] = {{0, 279, 279}, {0, 280, 279},   {0, 278, 278},   {0, 0, 0},
                             {-5, 100, 3},  {2, 100, 3},     {3, 100, 3},     {4, 100, 4},
                             {99, 100, 99}, {100, 100, 100}, {101, 100, 100}, {1e300, 100, 100}};
    for (const Row& row : kRows) {
        WorkingSeries series = Numbered(row.bars);
        WindowSeries(row.request, series);
        EXPECT_EQ(series.BarCount, row.kept) << row.request << " of " << row.bars;
        EXPECT_EQ(series.LastBar, row.kept) << row.request << " of " << row.bars;
        if (row.kept == 0) continue;
        EXPECT_EQ(series.ClosePrice[row.kept], static_cast<double>(row.bars) + 0.02);
    }
}

TEST(WindowSeries, NeverWrittenAndEmptiedElementsStayWhatTheyAre) {
    WorkingSeries series = Numbered(5);
    WorkingSeries fresh;
    series.Volume = fresh.Volume;
    series.OpenPrice.Empty(5);
    WindowSeries(3, series);
    EXPECT_EQ(series.Volume.State(1), ElementState::NeverWritten);
    EXPECT_EQ(series.OpenPrice.State(3), ElementState::Emptied);
    EXPECT_EQ(series.OpenPrice[3], 0);
    EXPECT_EQ(series.OpenPrice.State(2), ElementState::Written);
}

TEST(MakeWeeklySeries, ThirteenBarsFoldToThreeWithTheRemainderDividedByThree) {
    WorkingSeries series = Numbered(13);
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 3U);
    EXPECT_EQ(series.LastBar, 3U);
    EXPECT_DOUBLE_EQ(series.Volume[1], 3.05);
    EXPECT_DOUBLE_EQ(series.Volume[2], 8.05);
    EXPECT_DOUBLE_EQ(series.Volume[3], (11.05 + 12.05 + 13.05) / 3);
    EXPECT_EQ(series.ClosePrice[3], 13.02);
    EXPECT_EQ(series.OpenPrice[3], 11.18);
}

TEST(MakeWeeklySeries, TenBarsFoldToTwoWithoutARemainderBar) {
    WorkingSeries series = Numbered(10);
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.ClosePrice[2], 10.02);
    EXPECT_EQ(series.ClosePrice[3], 3.02);  // above BarCount the daily bars stay
}

TEST(MakeMonthlySeries, TwentyBarsFoldToOne) {
    WorkingSeries series = Numbered(20);
    MakeMonthlySeries(series);
    EXPECT_EQ(series.BarCount, 1U);
    EXPECT_EQ(series.ClosePrice[1], 20.02);
    EXPECT_DOUBLE_EQ(series.Volume[1], 10.55);
}

TEST(MakeWeeklySeries, EachSeriesComesFromItsEndOfTheGroup) {
    WorkingSeries series = Numbered(10);
    MakeWeeklySeries(series);
    for (const NumberField& field : kNumberFields) {
        const double part = static_cast<double>(field.field) / 100;
        if (field.name == "Volume") continue;
        // Rising series: the high climbs to the last bar, the low stays with the first.
        const bool first = field.name == "OpenPrice" || field.name == "LowPrice";
        EXPECT_EQ((series.*field.series)[1], (first ? 1 : 5) + part) << field.name;
        EXPECT_EQ((series.*field.series)[2], (first ? 6 : 10) + part) << field.name;
    }
    for (const TextField& field : kTextFields) {
        EXPECT_EQ((series.*field.series)[2], "10/" + std::to_string(field.field)) << field.name;
    }
}

TEST(MakeWeeklySeries, HighComparesNeighboursAndNotARunningExtreme) {
    WorkingSeries series = Numbered(10);
    SetAll(series.HighPrice, {10, 12, 11, 11, 11, 10, 12, 11, 11.5, 11});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.HighPrice[1], 12);
    EXPECT_EQ(series.HighPrice[2], 11.5);
}

TEST(MakeWeeklySeries, FoldedHighCanLieBelowTheTrueMaximum) {
    WorkingSeries series = Numbered(4);
    SetAll(series.HighPrice, {5, 9, 7, 8});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 1U);
    EXPECT_EQ(series.HighPrice[1], 8);
}

TEST(MakeWeeklySeries, LowComparesNeighboursDownward) {
    WorkingSeries series = Numbered(5);
    SetAll(series.LowPrice, {9, 4, 8, 6, 7});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.LowPrice[1], 6);
}

TEST(MakeWeeklySeries, WholeWeekKeepsTheFirstOpenAndARemainderCompares) {
    WorkingSeries series = Numbered(8);
    SetAll(series.OpenPrice, {9, 4, 8, 6, 7, 9, 4, 8});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.OpenPrice[1], 9);
    EXPECT_EQ(series.OpenPrice[2], 4);
}

TEST(MakeMonthlySeries, WholeMonthComparesOpens) {
    WorkingSeries series = Numbered(21);
    for (std::size_t i = 1; i <= 21; ++i) series.OpenPrice.Set(i, 50);
    series.OpenPrice.Set(7, 40);
    series.OpenPrice.Set(13, 45);
    MakeMonthlySeries(series);
    EXPECT_EQ(series.OpenPrice[1], 45);
    EXPECT_EQ(series.OpenPrice[2], 50);
    EXPECT_EQ(series.Volume[2], 21.05);  // one bar left over, divided by 1
}

TEST(MakeWeeklySeries, EmptiedOpenReadsAsZeroAndIsTakenOver) {
    WorkingSeries series = Numbered(7);
    series.OpenPrice.Empty(7);
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.OpenPrice.State(2), ElementState::Emptied);
}

TEST(MakeWeeklySeries, AskAndBidFoldLikeHighAndLow) {
    WorkingSeries series = Numbered(5);
    SetAll(series.AskPrice, {5, 9, 7, 8, 8});
    SetAll(series.BidPrice, {5, 3, 7, 4, 4});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.AskPrice[1], 8);
    EXPECT_EQ(series.BidPrice[1], 4);
}

TEST(MakeWeeklySeries, NeverWrittenSeriesStayNeverWrittenButForTheVolume) {
    WorkingSeries series;
    series.BarCount = 7;
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 2U);
    EXPECT_EQ(series.ClosePrice.State(1), ElementState::NeverWritten);
    EXPECT_EQ(series.HighPrice.State(2), ElementState::NeverWritten);
    EXPECT_EQ(series.AskPrice.State(1), ElementState::NeverWritten);
    EXPECT_EQ(series.Volume.State(1), ElementState::Written);
    EXPECT_EQ(series.Volume[1], 0);
}

TEST(MakeWeeklySeries, WindowsToTheDefaultLength) {
    WorkingSeries series = Numbered(2000);
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 279U);
    EXPECT_EQ(series.LastBar, 279U);
    EXPECT_EQ(series.ClosePrice[279], 2000.02);
    EXPECT_EQ(series.ClosePrice[280], 1400.02);  // the folded bar 280, before the window
}

TEST(MakeWeeklySeries, NoBarsFoldToNone) {
    WorkingSeries series;
    MakeWeeklySeries(series);
    EXPECT_EQ(series.BarCount, 0U);
    EXPECT_EQ(series.LastBar, 0U);
}

TEST(MakeWeeklySeries, VolumeTooLargeForADoubleIsPassedOver) {
    WorkingSeries series = Numbered(5);
    SetAll(series.Volume, {1e308, 1e308, 5, 5, 5});
    MakeWeeklySeries(series);
    EXPECT_EQ(series.Volume[1], (1e308 + 15) / 5);
}

}  // namespace
}  // namespace brantlow
