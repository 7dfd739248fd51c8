// Zoom and pan: which bars are shown, where their numbers come from, and that the chart's own lists stay.
#include "chart/chart_zoom.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "chart/paint_fixture.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

std::string DayRow(std::size_t i) {
    const auto text = [](double number) { return std::to_string(number); };
    const double close = 100 + static_cast<double>(i);
    return "\"day " + std::to_string(i) + "\",\"16:00\"," + text(close) + "," + text(close - 1) + "," +
           text(close + 1) + ",1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + text(close) + "\r\n";
}

class ZoomTest : public SessionTest {
  protected:
    ZoomTest() {
        Write("Data/VTRGRAPHset.ini",
              "\"Default\"\r\n\"Price\"\r\n\"MA "
              "30\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"None\"\r\n\"None\"\r\n");
    }
    // Bars "day 1" to "day `count`", which close at 101, 102 and so on.
    void Start(std::size_t count, const std::string& ticker = "ABC") {
        WriteBars(ticker, count);
        StartChart(context, {ticker}, "");
    }
    void WriteBars(const std::string& ticker, std::size_t count) {
        std::string rows = DayRow(0);
        for (std::size_t i = 1; i <= count; ++i) rows += DayRow(i);
        Write("Quotes/EOD/" + ticker + ".24", rows);
    }
    const WorkingSeries& Series() { return zoom.Shown().analysis.series; }
    double FirstShown() { return Series().ClosePrice[zoom.View().first] - 100; }
    double LastShown() { return Series().ClosePrice[std::min(zoom.View().Last(), Series().BarCount)] - 100; }
    // The day under `x`.
    double DayAt(double x) { return Series().ClosePrice[zoom.View().BarAt(x, Series().BarCount)] - 100; }

    static constexpr double kMiddle = 6350;

    Analysis analysis;
    ChartSession chart;
    ChartContext context{session, analysis, chart};
    ChartZoom zoom{context};
};

TEST_F(ZoomTest, BeginsWithTheChartsOwnWindow) {
    Start(1000);
    EXPECT_TRUE(zoom.View().IsWhole());
    EXPECT_FALSE(zoom.IsWide());
    EXPECT_EQ(&zoom.Shown().chart, &chart);
    EXPECT_EQ(FirstShown(), 722);
    EXPECT_EQ(LastShown(), 1000);
    EXPECT_EQ(zoom.Remark(), "");
}

TEST_F(ZoomTest, TheBarUnderThePointerStaysThere) {
    Start(1000);
    for (const double x : {700.0, kMiddle, 12000.0}) {
        zoom.Reset();
        for (int step = 0; step < 8; ++step) {
            const double before = DayAt(x);
            zoom.ZoomAbout(x, 0.8);
            EXPECT_NEAR(DayAt(x), before, 1) << x << " step " << step;
        }
        EXPECT_LT(zoom.Span().count, 60U);
        EXPECT_FALSE(zoom.IsWide()) << "all of it lies in the chart's own window";
        for (int step = 0; step < 8; ++step) zoom.ZoomAbout(x, 1.25);
    }
}

TEST_F(ZoomTest, TwentyBarsAreTheClosestAndAllBarsTheWidest) {
    Start(1000);
    for (int step = 0; step < 40; ++step) zoom.ZoomAbout(kMiddle, 0.8);
    EXPECT_EQ(zoom.Span().count, 20U);
    EXPECT_EQ(LastShown() - FirstShown(), 19);
    for (int step = 0; step < 60; ++step) zoom.ZoomAbout(kMiddle, 1.25);
    EXPECT_EQ(zoom.Span(), (ChartSpan{0, 1000}));
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(LastShown(), 1000);
}

TEST_F(ZoomTest, AWiderSpanComputesItsStudiesOverWhatItShowsAndSaysSo) {
    Start(1000);
    for (int step = 0; step < 60; ++step) zoom.ZoomAbout(kMiddle, 1.25);
    EXPECT_TRUE(zoom.IsWide());
    EXPECT_EQ(Series().BarCount, 1000U);
    // The mean of the closes of the days 471 to 500.
    EXPECT_DOUBLE_EQ(zoom.Shown().analysis.indicators.MA30[500], 585.5);
    // The straight line through all of them, which they lie on.
    EXPECT_NEAR(zoom.Shown().analysis.indicators.LRPrice[1], 101, 1e-6);
    EXPECT_EQ(zoom.Remark(), "Series and studies over 1000 bars, day 1 - day 1000");
    // Every bar is drawn, far beyond the right axis of the list.
    float farthest = 0;
    for (const DrawnLine& line :
         LinesAfterFrame(zoom.Shown().chart.Picture(Panel::Price), kPriceFrameItems)) {
        farthest = std::max(farthest, line.x2);
    }
    EXPECT_GE(farthest, 50 + 45 * 1000);
}

TEST_F(ZoomTest, TheChartsOwnListsStayWhateverIsShown) {
    Start(1000);
    const std::vector<DrawnItem> price = chart.Picture(Panel::Price).items;
    const std::vector<DrawnItem> study = chart.Picture(Panel::Study).items;
    zoom.PanBy(300);
    zoom.ZoomAbout(kMiddle, 3);
    EXPECT_TRUE(zoom.IsWide());
    EXPECT_EQ(chart.Picture(Panel::Price).items, price);
    EXPECT_EQ(chart.Picture(Panel::Study).items, study);
    EXPECT_EQ(analysis.series.BarCount, 279U);
    zoom.Reset();
    EXPECT_TRUE(zoom.View().IsWhole());
    EXPECT_EQ(&zoom.Shown().chart, &chart);
}

TEST_F(ZoomTest, PansToOlderBarsAndBack) {
    Start(1000);
    zoom.PanBy(100);
    EXPECT_EQ(LastShown(), 900);
    EXPECT_EQ(FirstShown(), 622);
    // The 279 bars that a chart of that day shows, with its studies.
    EXPECT_EQ(Series().BarCount, 279U);
    EXPECT_DOUBLE_EQ(zoom.Shown().analysis.indicators.MA30[279], 985.5);
    zoom.PanBy(-60);
    EXPECT_EQ(LastShown(), 960);
    zoom.PanBy(-500);
    EXPECT_TRUE(zoom.View().IsWhole());
    zoom.PanBy(5000);
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(LastShown(), 279);
    zoom.PanToNewest();
    EXPECT_TRUE(zoom.View().IsWhole());
    zoom.PanToOldest();
    EXPECT_EQ(FirstShown(), 1);
}

TEST_F(ZoomTest, APanTellsWhetherThereWereBarsToGoTo) {
    Start(1000);
    EXPECT_FALSE(zoom.PanBy(-5)) << "newer than the newest";
    EXPECT_TRUE(zoom.PanBy(5));
    EXPECT_TRUE(zoom.PanBy(-8)) << "as far as there are bars";
    EXPECT_TRUE(zoom.View().IsWhole());
    zoom.PanToOldest();
    const std::vector<DrawnItem> drawn = zoom.Shown().chart.Picture(Panel::Price).items;
    EXPECT_FALSE(zoom.PanBy(1));
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(zoom.Shown().chart.Picture(Panel::Price).items, drawn);
    for (int step = 0; step < 60; ++step) zoom.ZoomAbout(kMiddle, 1.25);
    EXPECT_FALSE(zoom.PanBy(50)) << "all bars are in sight";
    EXPECT_FALSE(zoom.PanBy(-50));
}

// The stretch stays, but not what was computed of it.
TEST_F(ZoomTest, AStretchThatStaysIsComputedAnewAfterALoad) {
    Start(1000);
    zoom.PanToOldest();
    ASSERT_EQ(LastShown(), 279);
    std::string rows = DayRow(0);
    for (std::size_t i = 1; i <= 1000; ++i) rows += DayRow(i + 5000);
    Write("Quotes/EOD/ABC.24", rows);
    ASSERT_FALSE(ReloadChart(context, Signals::Compute));
    PaintAllPanels(context);
    const ChartSpan before = zoom.Span();
    zoom.Reloaded();
    EXPECT_EQ(zoom.Span(), before);
    EXPECT_EQ(FirstShown(), 5001);
    EXPECT_EQ(LastShown(), 5279);
}

TEST_F(ZoomTest, AFewOldBarsHaveTheStudiesOfTheBarsBeforeThem) {
    Start(1000);
    for (int step = 0; step < 40; ++step) zoom.ZoomAbout(kMiddle, 0.8);
    zoom.PanToOldest();
    EXPECT_EQ(FirstShown(), 1);
    zoom.PanBy(-480);
    EXPECT_EQ(LastShown(), 500);
    EXPECT_EQ(Series().BarCount, 279U);
    EXPECT_DOUBLE_EQ(zoom.Shown().analysis.indicators.MA30[279], 585.5);
}

TEST_F(ZoomTest, AShortHistoryIsZoomedWithinItself) {
    Start(60);
    zoom.ZoomAbout(kMiddle, 2);
    EXPECT_TRUE(zoom.View().IsWhole());
    zoom.PanBy(10);
    EXPECT_TRUE(zoom.View().IsWhole());
    // Bars end at x = 2750; right of them the newest one is held.
    zoom.ZoomAbout(2000, 0.1);
    EXPECT_FALSE(zoom.View().IsWhole());
    EXPECT_FALSE(zoom.IsWide());
    EXPECT_EQ(LastShown() - FirstShown() + 1, static_cast<double>(zoom.Span().count));
    for (int step = 0; step < 20; ++step) zoom.ZoomAbout(kMiddle, 2);
    EXPECT_TRUE(zoom.View().IsWhole());
}

TEST_F(ZoomTest, AnEmptyChartStaysAsItIs) {
    StartChart(context, {"NONE"}, "");
    zoom.ZoomAbout(kMiddle, 0.5);
    zoom.ZoomAbout(kMiddle, 2);
    zoom.PanBy(5);
    zoom.PanToOldest();
    zoom.PanToNewest();
    EXPECT_TRUE(zoom.View().IsWhole());
}

TEST_F(ZoomTest, AnotherSeriesIsDrawnOverTheStretchAsWell) {
    Start(1000);
    zoom.PanBy(300);
    const std::size_t before = zoom.Shown().chart.Picture(Panel::Price).items.size();
    PickPriceSeries(context, "WMA 15");
    zoom.PaintedAgain();
    EXPECT_GT(zoom.Shown().chart.Picture(Panel::Price).items.size(), before + 200);
    PickStudy(context, "RSI 15");
    zoom.PaintedAgain();
    EXPECT_EQ(zoom.Shown().chart.StudyTop, 100);
}

TEST_F(ZoomTest, AnotherTickerKeepsTheStretchAsFarAsItHasBars) {
    Start(1000);
    WriteBars("LONG", 2000);
    WriteBars("SHORT", 320);
    zoom.PanBy(400);
    ChangeTicker(context, {"LONG"});
    zoom.Reloaded();
    EXPECT_EQ(zoom.Span(), (ChartSpan{400, 279}));
    EXPECT_EQ(LastShown(), 1600);
    ChangeTicker(context, {"SHORT"});
    zoom.Reloaded();
    EXPECT_EQ(LastShown(), 279);
    EXPECT_EQ(FirstShown(), 1);
    ChangeTicker(context, {"NONE"});
    zoom.Reloaded();
    EXPECT_TRUE(zoom.View().IsWhole());
}

TEST_F(ZoomTest, WhatWasReadAheadIsNotReadAgain) {
    Start(1000);
    zoom.ReadAhead();
    zoom.ReadAhead();
    zoom.AwaitReading();
    std::filesystem::remove(folder / "Quotes/EOD/ABC.24");
    zoom.PanToOldest();
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(LastShown(), 279);
    EXPECT_THAT(person.said, ::testing::IsEmpty());
}

// Tells when another thread asks for the day.
class ClockOfOneThread final : public Clock {
  public:
    Date Today() const override {
        if (std::this_thread::get_id() != own_) ++askedElsewhere;
        return std::chrono::year{2024} / 3 / 15;
    }
    double SecondsSinceMidnight() const override { return 0; }
    mutable std::atomic<int> askedElsewhere{0};

  private:
    std::thread::id own_ = std::this_thread::get_id();
};

TEST_F(ZoomTest, ReadingAheadAsksNothingOfTheSession) {
    const ClockOfOneThread watched;
    Session other{folder.Get(), watched, person};
    other.settings = session.settings;
    WriteBars("ABC", 1000);
    ChartContext shown{other, analysis, chart};
    StartChart(shown, {"ABC"}, "");
    ChartZoom reading{shown};
    reading.ReadAhead();
    reading.AwaitReading();
    EXPECT_EQ(watched.askedElsewhere, 0);
    reading.PanToOldest();
    EXPECT_EQ(reading.Span().back + reading.Span().count, 1000U);
}

TEST_F(ZoomTest, WhatWasReadAheadOfAnotherTickerIsForgotten) {
    Start(1000);
    zoom.ReadAhead();
    Start(600, "DEF");
    zoom.Reloaded();
    zoom.ReadAhead();
    zoom.PanToOldest();
    zoom.PanBy(-10000);
    EXPECT_EQ(LastShown(), 600);
    zoom.PanToOldest();
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(zoom.Span().back, 600U - 279U);
}

TEST_F(ZoomTest, AReadingAheadThatFailsIsToldWhenItIsNeeded) {
    Start(1000);
    std::filesystem::remove(folder / "Quotes/EOD/ABC.24");
    std::filesystem::create_directories(folder / "Quotes/EOD/ABC.24");
    zoom.ReadAhead();
    zoom.AwaitReading();
    EXPECT_THAT(person.said, ::testing::IsEmpty());
    zoom.PanToOldest();
    zoom.PanToOldest();
    EXPECT_EQ(person.said.size(), 1U);
    EXPECT_EQ(LastShown(), 1000);
}

TEST_F(ZoomTest, WeeksAndMonthsAreZoomedToo) {
    Start(4000);
    CoarserTimeFrame(context);
    zoom.Reloaded();
    zoom.PanToOldest();
    EXPECT_EQ(Series().QuoteDate[1], "day 5");
    CoarserTimeFrame(context);
    zoom.Reloaded();
    for (int step = 0; step < 30; ++step) zoom.ZoomAbout(kMiddle, 1.25);
    EXPECT_TRUE(zoom.View().IsWhole()) << "200 months fit the chart's own window";
    EXPECT_EQ(Series().BarCount, 200U);
}

TEST_F(ZoomTest, AHistoryThatCannotBeReadIsToldOnceAndTheWindowStays) {
    Start(1000);
    std::filesystem::remove(session.AppPath / "Quotes/EOD/ABC.24");
    std::filesystem::create_directories(session.AppPath / "Quotes/EOD/ABC.24");
    person.said.clear();
    zoom.PanBy(50);
    zoom.PanBy(50);
    EXPECT_EQ(person.said.size(), 1U);
    EXPECT_TRUE(zoom.View().IsWhole());
    zoom.ZoomAbout(kMiddle, 0.5);
    EXPECT_FALSE(zoom.View().IsWhole());
    EXPECT_EQ(LastShown() - FirstShown() + 1, static_cast<double>(zoom.Span().count));
}

}  // namespace
}  // namespace brantlow
