// Series that no chart was made for: drawn or empty, finite, and soon done.
#include <cmath>

#include "chart/chart_picture.h"
#include "chart/chart_svg.h"
#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

void ExpectDrawable(const PanelDrawing& drawing, const std::string& what) {
    for (const DrawnItem& item : drawing.items) {
        if (const auto* line = std::get_if<DrawnLine>(&item)) {
            for (const float coordinate : {line->x1, line->y1, line->x2, line->y2}) {
                ASSERT_LE(std::abs(coordinate), 1e7F) << what << ' ' << testing::PrintToString(*line);
            }
        } else {
            const auto& circle = std::get<DrawnCircle>(item);
            ASSERT_LE(std::abs(circle.x), 1e7F) << what;
            ASSERT_LE(std::abs(circle.y), 1e7F) << what;
        }
    }
}

class HostileChart : public PaintTest {
  protected:
    // Every series of the price panel seven at a time, every study, every series of the volume panel, in both
    // styles, and the whole as a picture.
    void PaintEverything(const std::string& what) {
        for (const char* style : {"Default", "CandleStick"}) {
            SetGraphLine(1, style);
            for (std::size_t first = 0; first < kPriceSeriesItems.size(); first += kSlotControls.size()) {
                TakeSlots(first);
                chart.Picture(Panel::Price) = PaintPrice();
                ExpectDrawable(chart.Picture(Panel::Price), what);
            }
        }
        for (const std::string_view study : kStudyItems) {
            chart.Picture(Panel::Study) = PaintStudy(study);
            ExpectDrawable(chart.Picture(Panel::Study), what + " " + std::string(study));
        }
        for (const std::string_view entry : kVolumeSeriesItems) {
            chart.VolumeSeriesList = {std::string(entry)};
            chart.Picture(Panel::Volume) = PaintVolumePanel(chart, analysis);
            ExpectDrawable(chart.Picture(Panel::Volume), what + " " + std::string(entry));
        }
        const std::string svg = SvgOf(LayOutPicture(chart, series));
        EXPECT_EQ(svg.find("nan"), std::string::npos) << what;
        EXPECT_EQ(svg.find("inf"), std::string::npos) << what;
        EXPECT_EQ(svg.find("e+"), std::string::npos) << what;
    }
    void TakeSlots(std::size_t first) {
        for (std::size_t slot = 0; slot < chart.Slots.size(); ++slot) {
            const std::size_t item = std::min(first + slot, kPriceSeriesItems.size() - 1);
            chart.Slots[slot] = kPriceSeriesItems[item];
        }
    }
    void Compute() { ComputeIndicators(series, indicators); }
};

TEST_F(HostileChart, NoOneTwoOrThreeBars) {
    for (const std::size_t bars : {0U, 1U, 2U, 3U, 4U}) {
        FillBars(bars);
        Compute();
        PaintEverything(std::to_string(bars) + " bars");
    }
}

TEST_F(HostileChart, NoBarsDrawTheFrameAndTheAlarmsAlone) {
    for (const std::string_view item : kPriceSeriesItems) {
        chart.Slots = {std::string(item)};
        const PanelDrawing drawing = PaintPrice();
        EXPECT_EQ(drawing.items.size(), kPriceFrameItems + 6) << item;
        EXPECT_EQ(LabelText(drawing, "Label51"), "1.00");
        EXPECT_EQ(LabelText(drawing, "Label53"), "0.00");
    }
}

TEST_F(HostileChart, OneBarIsDrawn) {
    FillBars(1);
    EXPECT_EQ(LinesAfterFrame(PaintPrice(), kPriceFrameItems).size(), 2U);
    EXPECT_EQ(LabelText(PaintPrice(), "Label60"), LabelText(PaintPrice(), "Label62"));
}

TEST_F(HostileChart, EighteenThousandBars) {
    FillBars(18000);
    for (std::size_t i = 1; i <= 18000; ++i) series.ClosePrice.Set(i, 140 + static_cast<double>(i % 20));
    indicators.MaxVolume = 1000;
    chart.Slots = {"Price", "MA 15", "", "MLR 15 L.CL"};
    const PanelDrawing drawing = PaintPrice();
    // Two lines a bar, segments from bar 16, and two lines a bar from bar 16.
    EXPECT_EQ(LinesAfterFrame(drawing, kPriceFrameItems).size(), 36000U + 17985 + 2 * 17985);
    PaintEverything("18,000 bars");
}

TEST_F(HostileChart, ZeroAndNegativePrices) {
    FillBars(200);
    for (std::size_t i = 1; i <= 200; ++i) {
        const double price = i % 3 == 0 ? 0 : -static_cast<double>(i);
        SetBar(i, price, price + 1, price - 1, price);
    }
    Compute();
    PaintEverything("negative prices");
    EXPECT_EQ(chart.PriceBottom, -201);
}

TEST_F(HostileChart, AFlatSeries) {
    FillBars(200);
    for (std::size_t i = 1; i <= 200; ++i) SetBar(i, 5, 5, 5, 5);
    Compute();
    PaintEverything("flat");
    EXPECT_EQ(chart.PriceTop, 1);
}

TEST_F(HostileChart, HugeValues) {
    for (const double huge : {1e300, -1e300, 1.7e308, 5e-324}) {
        FillBars(200);
        for (std::size_t i = 50; i <= 200; i += 7) {
            SetBar(i, huge, huge, -huge, i % 2 == 0 ? huge : -huge);
            series.Volume.Set(i, huge);
            series.PERatio.Set(i, huge);
            series.PriceToSales.Set(i, -huge);
        }
        chart.HighAlarm = huge;
        chart.LowAlarm = huge;
        Compute();
        PaintEverything(std::to_string(huge));
    }
}

TEST_F(HostileChart, AHighBelowTheLow) {
    FillBars(40);
    for (std::size_t i = 1; i <= 40; ++i) SetBar(i, 10, 5, 15, 10);
    Compute();
    PaintEverything("upside down");
}

TEST_F(HostileChart, TextsOfAnyKind) {
    FillBars(20);
    chart.SelectorTicker = "<&>\x01\xE9" + std::string(500, 'W');
    series.QuoteDate.Set(1, "\"'\t<x>");
    chart.Slots = {"Price", "</text><script>"};
    PaintEverything("texts");
    const std::string svg = SvgOf(LayOutPicture(chart, series));
    EXPECT_EQ(svg.find("<x>"), std::string::npos);
    EXPECT_NE(svg.find("&lt;&amp;&gt;?\xC3\xA9"), std::string::npos);
}

}  // namespace
}  // namespace brantlow
