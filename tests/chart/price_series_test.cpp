// Every series of the price panel by its drawing list.
#include <cmath>

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

struct SeriesRow {
    std::string_view name;
    NumberSeries Indicators::*centre;
    NumberSeries Indicators::*upper;
    NumberSeries Indicators::*lower;
    std::size_t from;
    Rgb line;
    Rgb caption;
};

constexpr SeriesRow kSeriesRows[] = {
    {"MA 15", &Indicators::MA15, nullptr, nullptr, 16, {0, 100, 0}, {0, 100, 0}},
    {"MA 30", &Indicators::MA30, nullptr, nullptr, 31, {0, 150, 0}, {0, 150, 0}},
    {"MA 60", &Indicators::MA60, nullptr, nullptr, 61, {0, 180, 0}, {0, 180, 0}},
    {"MA 90", &Indicators::MA90, nullptr, nullptr, 91, {0, 200, 0}, {0, 200, 0}},
    {"MA 120", &Indicators::MA120, nullptr, nullptr, 121, {0, 220, 0}, {0, 220, 0}},
    {"MA 180", &Indicators::MA180, nullptr, nullptr, 181, {0, 250, 0}, {0, 250, 0}},
    {"WMA 15", &Indicators::WMA15, nullptr, nullptr, 16, {0, 0, 100}, {0, 0, 100}},
    {"WMA 30", &Indicators::WMA30, nullptr, nullptr, 31, {0, 0, 150}, {10, 10, 150}},
    {"WMA 60", &Indicators::WMA60, nullptr, nullptr, 61, {0, 0, 180}, {20, 20, 190}},
    {"WMA 90", &Indicators::WMA90, nullptr, nullptr, 91, {0, 0, 200}, {30, 30, 220}},
    {"WMA 120", &Indicators::WMA120, nullptr, nullptr, 121, {0, 0, 220}, {40, 40, 250}},
    {"WMA 180", &Indicators::WMA180, nullptr, nullptr, 181, {0, 0, 250}, {70, 70, 255}},
    {"MLR 15", &Indicators::MLR15, nullptr, nullptr, 16, {255, 100, 50}, {255, 80, 50}},
    {"MLR 30", &Indicators::MLR30, nullptr, nullptr, 31, {255, 120, 50}, {255, 120, 50}},
    {"MLR 60", &Indicators::MLR60, nullptr, nullptr, 61, {255, 140, 50}, {255, 160, 50}},
    {"MLR 90", &Indicators::MLR90, nullptr, nullptr, 91, {255, 160, 50}, {255, 200, 50}},
    {"MLR 120", &Indicators::MLR120, nullptr, nullptr, 121, {255, 180, 50}, {255, 240, 50}},
    {"MLR 15 T.CL",
     &Indicators::MLR15,
     &Indicators::TightUCL15,
     &Indicators::TightLCL15,
     16,
     {100, 0, 100},
     {100, 0, 100}},
    {"MLR 30 T.CL",
     &Indicators::MLR30,
     &Indicators::TightUCL30,
     &Indicators::TightLCL30,
     31,
     {150, 0, 100},
     {150, 0, 100}},
    {"MLR 60 T.CL",
     &Indicators::MLR60,
     &Indicators::TightUCL60,
     &Indicators::TightLCL60,
     61,
     {180, 0, 100},
     {180, 0, 100}},
    {"MLR 90 T.CL",
     &Indicators::MLR90,
     &Indicators::TightUCL90,
     &Indicators::TightLCL90,
     91,
     {200, 0, 100},
     {200, 0, 100}},
    {"MLR 120 T.CL",
     &Indicators::MLR120,
     &Indicators::TightUCL120,
     &Indicators::TightLCL120,
     121,
     {220, 0, 100},
     {220, 0, 100}},
    {"MLR 15 L.CL",
     &Indicators::MLR15,
     &Indicators::LooseUCL15,
     &Indicators::LooseLCL15,
     16,
     {100, 0, 0},
     {100, 0, 0}},
    {"MLR 30 L.CL",
     &Indicators::MLR30,
     &Indicators::LooseUCL30,
     &Indicators::LooseLCL30,
     31,
     {150, 0, 0},
     {150, 0, 0}},
    {"MLR 60 L.CL",
     &Indicators::MLR60,
     &Indicators::LooseUCL60,
     &Indicators::LooseLCL60,
     61,
     {180, 0, 0},
     {180, 0, 0}},
    {"MLR 90 L.CL",
     &Indicators::MLR90,
     &Indicators::LooseUCL90,
     &Indicators::LooseLCL90,
     91,
     {200, 0, 0},
     {200, 0, 0}},
    {"MLR 120 L.CL",
     &Indicators::MLR120,
     &Indicators::LooseUCL120,
     &Indicators::LooseLCL120,
     121,
     {220, 0, 0},
     {220, 0, 0}},
};

struct WholeRow {
    std::string_view name;
    double Indicators::*upper;
    double Indicators::*lower;
    Rgb colour;
};

constexpr WholeRow kWholeRows[] = {
    {"LR T.CL", &Indicators::LRTightUCL, &Indicators::LRTightLCL, {0, 200, 150}},
    {"LR L.CL", &Indicators::LRLooseUCL, &Indicators::LRLooseLCL, {200, 50, 100}},
    {"LR MINMAX CL", &Indicators::LRMaxResidual, &Indicators::LRMinResidual, {100, 50, 150}},
};

class PriceSeries200 : public PaintTest {
  protected:
    PriceSeries200() { FillBars(200); }

    // The centre at bar i is 150 + i / 10, an upper offset 5 + i / 100, a lower one -7 - i / 50; every other
    // array of the pass holds 111 everywhere, so that a wrong array shows.
    void Fill(const SeriesRow& row) {
        for (const NamedIndicator& other : kIndicatorArrays) {
            for (std::size_t i = 0; i <= 200; ++i) (indicators.*other.array).Set(i, 111);
        }
        for (std::size_t i = 0; i <= 200; ++i) {
            const auto x = static_cast<double>(i);
            (indicators.*row.centre).Set(i, 150 + x / 10);
            if (row.upper == nullptr) continue;
            (indicators.*row.upper).Set(i, 5 + x / 100);
            (indicators.*row.lower).Set(i, -7 - x / 50);
        }
    }
    static double CentreAt(std::size_t i) { return 150 + static_cast<double>(i) / 10; }
    static double UpperAt(std::size_t i) { return CentreAt(i) + 5 + static_cast<double>(i) / 100; }
    static double LowerAt(std::size_t i) { return CentreAt(i) - 7 - static_cast<double>(i) / 50; }

    void ExpectSegments(const SeriesRow& row, const std::vector<DrawnLine>& lines) {
        const std::string name(row.name);
        const std::size_t linesABar = row.upper == nullptr ? 1 : 2;
        ASSERT_EQ(lines.size(), (200 - row.from + 1) * linesABar) << name;
        std::size_t k = 0;
        for (std::size_t i = row.from; i <= 200; ++i) {
            const std::string what = name + " at bar " + std::to_string(i);
            if (row.upper == nullptr) {
                ExpectLine(lines[k++], X(i - 1), Y(CentreAt(i - 1)), X(i), Y(CentreAt(i)), row.line, what);
            } else {
                ExpectLine(lines[k++], X(i - 1), Y(UpperAt(i - 1)), X(i), Y(UpperAt(i)), row.line, what);
                ExpectLine(lines[k++], X(i - 1), Y(LowerAt(i - 1)), X(i), Y(LowerAt(i)), row.line, what);
            }
        }
    }
};

TEST_F(PriceSeries200, EverySeriesHasItsSegmentsFromItsBarInItsColour) {
    for (const SeriesRow& row : kSeriesRows) {
        Fill(row);
        chart.Slots = {std::string(row.name)};
        const PanelDrawing drawing = PaintPrice();
        ExpectSegments(row, LinesAfterFrame(drawing, kPriceFrameItems));
        EXPECT_EQ(CaptionColour(drawing, "Label13"), row.caption) << row.name;
        EXPECT_EQ(chart.Combo1, row.name);
    }
}

TEST_F(PriceSeries200, EverySeriesDrawsNothingOneBarTooEarlyAndKeepsTheCaptionOfTheSlotBefore) {
    for (const SeriesRow& row : kSeriesRows) {
        Fill(row);
        series.BarCount = row.from - 1;
        chart.Slots = {std::string(row.name)};
        const PanelDrawing drawing = PaintPrice();
        EXPECT_EQ(LinesAfterFrame(drawing, kPriceFrameItems).size(), 0U) << row.name;
        EXPECT_EQ(CaptionColour(drawing, "Label13"), kTestBlack) << row.name;
    }
}

TEST_F(PriceSeries200, WholeWindowSeriesDrawTheRegressionAndTwoLinesOnce) {
    for (const WholeRow& row : kWholeRows) {
        static_cast<IndicatorScalars&>(indicators) = {};
        indicators.LRPrice.Set(1, 120);
        indicators.LRPrice.Set(200, 140);
        indicators.*row.upper = 12;
        indicators.*row.lower = -9;
        chart.Slots = {std::string(row.name)};
        const PanelDrawing drawing = PaintPrice();
        const std::vector<DrawnLine> lines = LinesAfterFrame(drawing, kPriceFrameItems);
        const std::string name(row.name);
        ASSERT_EQ(lines.size(), 3U) << name;
        // x(1) is 95, x(200) is 9050.
        ExpectLine(lines[0], 95, Y(120), 9050, Y(140), {100, 100, 100}, name);
        ExpectLine(lines[1], 95, Y(132), 9050, Y(152), row.colour, name);
        ExpectLine(lines[2], 95, Y(111), 9050, Y(131), row.colour, name);
        EXPECT_EQ(CaptionColour(drawing, "Label13"), row.colour) << name;
    }
}

TEST_F(PriceSeries200, ThePickListHoldsPriceAndEverySeriesOnce) {
    std::vector<std::string_view> names = {"Price"};
    for (const SeriesRow& row : kSeriesRows) names.push_back(row.name);
    for (const WholeRow& row : kWholeRows) names.push_back(row.name);
    EXPECT_EQ(std::vector<std::string_view>(kPriceSeriesItems.begin(), kPriceSeriesItems.end()), names);
}

TEST_F(PriceSeries200, AnUnknownSeriesDrawsNothingAndItsCaptionStands) {
    chart.Slots = {"MA 45"};
    const PanelDrawing drawing = PaintPrice();
    EXPECT_EQ(LinesAfterFrame(drawing, kPriceFrameItems).size(), 0U);
    EXPECT_EQ(LabelText(drawing, "Label13"), "MA 45");
    EXPECT_EQ(CaptionColour(drawing, "Label13"), kTestBlack);
}

}  // namespace
}  // namespace brantlow
