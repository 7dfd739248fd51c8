#include "chart/chart_view.h"

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

constexpr Rgb kRed = {200, 0, 0};

class ViewTest : public PaintTest {
  protected:
    ViewTest() {
        FillBars(279);
        for (std::size_t i = 1; i <= 279; ++i) {
            const double close = 100 + static_cast<double>(i) / 3;
            SetBar(i, close, close + 1, close - 1, close);
        }
        chart.Picture(Panel::Price) = PaintPrice();
    }
    ViewedPanel View(const ChartView& view) {
        return ViewOf(chart.Picture(Panel::Price).items, Panel::Price, AxisOf(chart, Panel::Price), view);
    }
    static ViewedPanel ViewOfLines(const std::vector<DrawnItem>& items, const ChartView& view) {
        return ViewOf(items, Panel::Price, {50, 200, 60}, view);
    }
    // The lines behind the frame.
    static std::vector<DrawnLine> Lines(const ViewedPanel& viewed) {
        PanelDrawing drawing;
        drawing.items = viewed.items;
        return LinesAfterFrame(drawing, kPriceFrameItems);
    }
};

TEST(ChartViews, TheWholeOneIsTheListsOwn) {
    const ChartView whole;
    EXPECT_TRUE(whole.IsWhole());
    EXPECT_DOUBLE_EQ(whole.Spacing(), 45);
    for (const double bar : {0.0, 1.0, 100.0, 279.0}) {
        EXPECT_DOUBLE_EQ(whole.X(bar), 50 + 45 * bar);
        EXPECT_NEAR(whole.FromList(50 + 45 * bar), 50 + 45 * bar, 1e-9);
        EXPECT_NEAR(whole.ToList(50 + 45 * bar), 50 + 45 * bar, 1e-9);
    }
}

TEST(ChartViews, PutTheirFirstBarBesideTheLeftAxisAndTheirLastBesideTheRight) {
    const ChartView view{101, 20};
    EXPECT_FALSE(view.IsWhole());
    EXPECT_DOUBLE_EQ(view.Spacing(), 600);
    EXPECT_DOUBLE_EQ(view.X(101), 650);
    EXPECT_DOUBLE_EQ(view.X(120), 12050);
    EXPECT_NEAR(view.FromList(50 + 45 * 101), 650, 1e-9);
    EXPECT_NEAR(view.ToList(12050), 50 + 45 * 120, 1e-9);
}

TEST(ChartViews, FindTheNearestBarThatTheyShow) {
    const ChartView view{101, 20};
    const std::pair<double, std::size_t> rows[] = {{650, 101},   {940, 101}, {960, 102}, {12050, 120},
                                                   {12300, 120}, {12700, 0}, {40, 0},    {300, 0}};
    for (const auto& [x, bar] : rows) EXPECT_EQ(view.BarAt(x, 279), bar) << x;
    EXPECT_EQ(view.BarAt(12050, 110), 0U);
    EXPECT_EQ(view.BarAt(650, 0), 0U);
}

TEST_F(ViewTest, TheFrameStaysAndTheBarsAreStretched) {
    const ViewedPanel viewed = View({101, 20});
    const std::vector<DrawnItem>& whole = chart.Picture(Panel::Price).items;
    ASSERT_GT(viewed.items.size(), kPriceFrameItems);
    for (std::size_t i = 0; i < kPriceFrameItems; ++i) EXPECT_EQ(viewed.items[i], whole[i]);
    // The first upright among the lines is bar 101's at x = 650.
    bool found = false;
    for (const DrawnLine& line : Lines(viewed)) {
        EXPECT_GE(line.x1, 49.9F);
        EXPECT_LE(line.x2, 12650.1F);
        found = found || (line.x1 == line.x2 && std::abs(line.x1 - 650) < 0.01F);
    }
    EXPECT_TRUE(found);
}

TEST_F(ViewTest, TheScaleIsThatOfTheBarsThatAreSeen) {
    const ViewedPanel viewed = View({101, 20});
    // Ticks of the closes reach one bar to the sides, so bars 100 to 121 are seen with theirs: the low of bar
    // 101 is 100 + 101 / 3 - 1, the high of bar 120 is 141. The gap repair leaves them.
    EXPECT_NEAR(viewed.axis.ValueAt(50), 100 + 120.0 / 3 + 1, 0.01);
    EXPECT_NEAR(viewed.axis.ValueAt(6050), 100 + 101.0 / 3 - 1, 0.01);
    // Where a bar stands is where the axis says.
    const double close = 100 + 110.0 / 3;
    bool found = false;
    for (const DrawnLine& line : Lines(viewed)) {
        found = found || std::abs(static_cast<double>(line.y1) - viewed.axis.Y(close)) < 0.5;
    }
    EXPECT_TRUE(found);
}

TEST_F(ViewTest, LinesAreCutAtTheAxesAndKeepTheirDirection) {
    // From bar 90 to bar 130 of the list, upwards by 40 twips a bar.
    const ViewedPanel viewed =
        ViewOfLines({DrawnLine{50 + 45 * 90, 3000, 50 + 45 * 130, 1400, kRed}}, {101, 20});
    const std::vector<DrawnLine> lines =
        ItemsFrom<DrawnLine>(PanelDrawing{viewed.items, {}}, kPriceFrameItems);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_FLOAT_EQ(lines[0].x1, 50);
    EXPECT_FLOAT_EQ(lines[0].x2, 12650);
    // The axes are bar 100 and bar 121, at 2600 and 1760 of the list: they fill the panel now.
    EXPECT_NEAR(lines[0].y1, 6050, 0.5);
    EXPECT_NEAR(lines[0].y2, 50, 0.5);
}

TEST_F(ViewTest, WhatIsBesideTheViewIsLeftOut) {
    const std::vector<DrawnItem> items = {
        DrawnLine{95, 100, 95, 200, kRed},
        DrawnLine{12000, 100, 12000, 200, kRed},
        DrawnCircle{95, 6050, 40, kRed},
    };
    EXPECT_EQ(ViewOfLines(items, {101, 20}).items.size(), kPriceFrameItems);
}

TEST_F(ViewTest, MarksStandAtTheirBarsAndAlarmsAtTheRightAxis) {
    const std::vector<DrawnItem> items = {
        DrawnLine{50 + 45 * 101, 1000, 50 + 45 * 101, 2000, kRed},
        DrawnCircle{50 + 45 * 110, 6050, 40, kRed},
        DrawnCircle{12645, 1500, 40, kRed},
    };
    const ViewedPanel viewed = ViewOfLines(items, {101, 20});
    const std::vector<DrawnCircle> circles = CirclesOf(PanelDrawing{viewed.items, {}});
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_NEAR(circles[0].x, 650 + 9 * 600, 0.1);
    EXPECT_EQ(circles[0].y, 6050);
    EXPECT_EQ(circles[1].x, 12645);
    EXPECT_NEAR(circles[1].y, 3050, 0.5);
    EXPECT_EQ(circles[1].radius, 40);
}

TEST_F(ViewTest, TheCursorReachesOverTheWholePanel) {
    const ViewedPanel viewed = ViewOfLines({DrawnLine{50 + 45 * 101, 1000, 50 + 45 * 101, 2000, kRed},
                                            PaintCursor(Panel::Price, 50 + 45 * 110 - 15)},
                                           {101, 20});
    const auto& cursor = std::get<DrawnLine>(viewed.items.back());
    EXPECT_EQ(cursor.y1, 50);
    EXPECT_EQ(cursor.y2, 6100);
    EXPECT_NEAR(cursor.x1, 650 + 9 * 600, 0.1);
    // It does not count for the scale.
    EXPECT_NEAR(viewed.axis.scale, 60 * 6, 0.01);
}

TEST_F(ViewTest, WithNothingSeenTheScaleStays) {
    const ViewedPanel viewed = ViewOfLines({}, {101, 20});
    EXPECT_EQ(viewed.axis.top, 200);
    EXPECT_EQ(viewed.axis.scale, 60);
}

TEST_F(ViewTest, TheFramesOfTheVolumePanelStayAsWell) {
    chart.VolumeSeriesList = {"Volume", "Average", "LR", "", "", ""};
    for (std::size_t i = 1; i <= 279; ++i) series.Volume.Set(i, 1000 + static_cast<double>(i));
    indicators.MaxVolume = 1279;
    const PanelDrawing drawing = PaintVolumePanel(chart, analysis);
    const ViewedPanel viewed = ViewOf(drawing.items, Panel::Volume, AxisOf(chart, Panel::Volume), {101, 20});
    std::size_t frames = 0;
    for (const DrawnLine& line : ItemsFrom<DrawnLine>(PanelDrawing{viewed.items, {}}, 0)) {
        frames += line.x1 == 25 && line.x2 == 12650 ? 1U : 0U;
    }
    EXPECT_EQ(frames, 2U);
    EXPECT_NEAR(viewed.axis.ValueAt(1120), 1001, 0.01);
}

}  // namespace
}  // namespace brantlow
