#include "chart/chart_palette.h"

#include <cmath>
#include <set>
#include <tuple>

#include "chart/chart_panels.h"
#include "chart/paint_fixture.h"
#include "chart/panel_colours.h"
#include "chart/pick_lists.h"
#include "chart/series_tables.h"

namespace brantlow {
namespace {

constexpr ChartColours kAllColours[] = {ChartColours::Standard, ChartColours::Distinct, ChartColours::Dark};

// --- how eyes see: published matrices for the three kinds of colour blindness, on linear light ---

using Triple = std::array<double, 3>;

Triple Linear(Rgb colour) {
    const auto channel = [](unsigned char value) {
        const double part = value / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return {channel(colour.red), channel(colour.green), channel(colour.blue)};
}

constexpr std::array<std::array<Triple, 3>, 4> kEyes = {{
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
}};

// Lightness and the two opponent axes.
Triple Perceived(Rgb colour, const std::array<Triple, 3>& eye) {
    const Triple light = Linear(colour);
    Triple seen{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) seen[i] += eye[i][k] * light[k];
        seen[i] = std::min(1.0, std::max(0.0, seen[i]));
    }
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f((0.4124 * seen[0] + 0.3576 * seen[1] + 0.1805 * seen[2]) / 0.9505);
    const double y = f(0.2126 * seen[0] + 0.7152 * seen[1] + 0.0722 * seen[2]);
    const double z = f((0.0193 * seen[0] + 0.1192 * seen[1] + 0.9505 * seen[2]) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Difference(Rgb a, Rgb b, const std::array<Triple, 3>& eye) {
    const Triple first = Perceived(a, eye);
    const Triple second = Perceived(b, eye);
    return std::hypot(first[0] - second[0], first[1] - second[1], first[2] - second[2]);
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(Contrast({0, 0, 0}, {255, 255, 255}), 21, 1e-9);
    EXPECT_NEAR(Contrast({255, 255, 255}, {0, 0, 0}), 21, 1e-9);
    EXPECT_NEAR(Contrast({80, 80, 80}, {80, 80, 80}), 1, 1e-9);
    // The greys just at and just below the bound on white.
    EXPECT_GE(Contrast({118, 118, 118}, {255, 255, 255}), 4.5);
    EXPECT_LT(Contrast({119, 119, 119}, {255, 255, 255}), 4.5);
}

TEST(Contrast, AColourIsMovedNoFurtherThanItMust) {
    constexpr Rgb kWhite = {255, 255, 255};
    EXPECT_EQ(Legible({0, 100, 0}, kWhite), (Rgb{0, 100, 0}));
    const Rgb yellow = Legible({255, 240, 50}, kWhite);
    EXPECT_GE(Contrast(yellow, kWhite), kLegibleContrast);
    EXPECT_LT(Contrast(yellow, kWhite), 5.2);
    // Still yellow: as much red as green, little blue.
    EXPECT_LT(std::abs(yellow.red - yellow.green), 12);
    EXPECT_LT(yellow.blue, yellow.red / 3);
    const Rgb onDark = Legible({0, 0, 90}, {24, 28, 34});
    EXPECT_GE(Contrast(onDark, {24, 28, 34}), kLegibleContrast);
}

class PaletteTest : public PaintTest {
  protected:
    PaletteTest() { FillBars(279); }
};

TEST_F(PaletteTest, EveryNameOfTheLegendCanBeReadOnItsGround) {
    for (const ChartColours colours : kAllColours) {
        const ChartPalette& palette = PaletteOf(colours);
        for (const std::string_view item : kPriceSeriesItems) {
            for (const std::size_t slot : {0U, 1U, 6U}) {
                chart.Slots = {};
                chart.Slots[slot] = item;
                EXPECT_GE(Contrast(SlotLegend(chart, 279, palette)[slot].colour, palette.ground), 4.5)
                    << palette.name << ' ' << item;
                EXPECT_GE(Contrast(SlotLegend(chart, 5, palette)[slot].colour, palette.ground), 4.5)
                    << palette.name << ' ' << item;
            }
        }
        chart.VolumeSeriesList = {"Average", "LR", "L. UCL", "T. UCL", "WMA 15", "WMA 30"};
        const std::vector<LegendEntry> volume = VolumeLegend(chart, 279, palette);
        ASSERT_EQ(volume.size(), 6U);
        for (const LegendEntry& entry : volume) {
            EXPECT_GE(Contrast(entry.colour, palette.ground), 4.5) << palette.name << ' ' << entry.text;
        }
        EXPECT_GE(Contrast(palette.ink, palette.ground), 4.5);
        EXPECT_GE(Contrast(palette.quiet, palette.ground), 4.5);
    }
}

TEST_F(PaletteTest, SixSlotsAndTheInkCanBeToldApartByEveryEye) {
    for (const ChartColours colours : {ChartColours::Distinct, ChartColours::Dark}) {
        const ChartPalette& palette = PaletteOf(colours);
        std::vector<Rgb> all(palette.series.begin(), palette.series.end());
        all.push_back(palette.ink);
        for (const auto& eye : kEyes) {
            for (std::size_t a = 0; a < all.size(); ++a) {
                for (std::size_t b = 0; b < a; ++b) {
                    // Some thirteen times what eyes just notice side by side.
                    EXPECT_GT(Difference(all[a], all[b], eye), 28) << palette.name << ' ' << a << ' ' << b;
                }
            }
            EXPECT_GT(Difference(palette.rising, palette.falling, eye), 10) << palette.name;
        }
    }
    // A pair of the lists' own for comparison.
    EXPECT_LT(Difference({0, 200, 0}, {0, 220, 0}, kEyes[0]), 10);
}

TEST_F(PaletteTest, TheStandardOneLeavesEveryColourAsItIs) {
    chart.Slots = {"Price", "MA 15", "LR L.CL", "", "", "", ""};
    const ColourMap map(PaletteOf(ChartColours::Standard), chart);
    for (const Rgb colour :
         {kTestBlack, kRisingBody, kStudyDown, kAlarmMark, Rgb{0, 100, 0}, Rgb{200, 50, 100}}) {
        for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
            EXPECT_EQ(map(panel, colour).colour, colour);
        }
    }
    EXPECT_TRUE(map(Panel::Price, {0, 100, 0}).isSeries);
    EXPECT_TRUE(map(Panel::Price, {200, 50, 100}).isSeries);
    EXPECT_TRUE(map(Panel::Volume, {55, 80, 255}).isSeries);
    EXPECT_FALSE(map(Panel::Price, kTestBlack).isSeries);
    EXPECT_FALSE(map(Panel::Study, {0, 100, 0}).isSeries);
}

TEST_F(PaletteTest, ASeriesTakesTheColourOfItsSlot) {
    chart.Slots = {"Price", "WMA 60", "MLR 30 L.CL", "", "LR T.CL", "WMA 60", ""};
    for (const ChartColours colours : {ChartColours::Distinct, ChartColours::Dark}) {
        const ChartPalette& palette = PaletteOf(colours);
        const ColourMap map(palette, chart);
        EXPECT_EQ(map(Panel::Price, {0, 0, 180}).colour, palette.series[0]);
        EXPECT_EQ(map(Panel::Price, {150, 0, 0}).colour, palette.series[1]);
        EXPECT_EQ(map(Panel::Price, {0, 200, 150}).colour, palette.series[3]);
        const auto legend = SlotLegend(chart, 279, palette);
        EXPECT_EQ(legend[1].colour, palette.series[0]);
        EXPECT_EQ(legend[2].colour, palette.series[1]);
        EXPECT_EQ(legend[4].colour, palette.series[3]);
        // The second slot of a series has the colour in which its line is drawn.
        EXPECT_EQ(legend[5].colour, palette.series[0]);
    }
}

// Whatever a paint draws is drawn in a colour that the palette has.
TEST_F(PaletteTest, NothingOfAPaintIsLeftInAColourOfTheLists) {
    for (std::size_t i = 1; i <= 279; ++i) {
        SetBar(i, 140, 200, 100, i % 3 == 0 ? 140 : i % 3 == 1 ? 150 : 130);
        for (const PriceSeries& row : kPriceSeries) (indicators.*row.centre).Set(i, 150);
        indicators.LRPrice.Set(i, 150);
        for (const Study& study : kStudies) {
            if (study.computed != nullptr)
                (indicators.*study.computed).Set(i, std::sin(static_cast<double>(i)));
        }
        chart.BuySignal.Set(i, i % 20 == 0 ? "True" : "False");
        chart.SellSignal.Set(i, i % 20 == 10 ? "True" : "False");
    }
    SetGraphLine(1, "CandleStick");
    SetGraphLine(9, "Condition 1");
    SetGraphLine(10, "Condition 2");
    chart.Slots = {"Price", "MA 15", "WMA 30", "MLR 90", "MLR 60 T.CL", "LR L.CL", "LR MINMAX CL"};
    chart.VolumeSeriesList = {"Volume", "Average", "LR", "L. UCL", "T. UCL", "WMA 15"};
    std::vector<std::pair<Panel, PanelDrawing>> drawings;
    drawings.emplace_back(Panel::Price, PaintPrice());
    for (const std::string_view study : kStudyItems) drawings.emplace_back(Panel::Study, PaintStudy(study));
    drawings.emplace_back(Panel::Volume, PaintVolumePanel(chart, analysis));
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
        PanelDrawing cursor;
        cursor.items.emplace_back(PaintCursor(panel, 500));
        drawings.emplace_back(panel, cursor);
    }
    for (const ChartColours colours : {ChartColours::Distinct, ChartColours::Dark}) {
        const ChartPalette& palette = PaletteOf(colours);
        std::vector<Rgb> known(palette.series.begin(), palette.series.end());
        for (const Rgb colour : {palette.ink, palette.quiet, palette.rising, palette.falling, palette.buy,
                                 palette.sell, palette.alarm, palette.cursor}) {
            known.push_back(colour);
        }
        const ColourMap map(palette, chart);
        for (const auto& [panel, drawing] : drawings) {
            for (const DrawnItem& item : drawing.items) {
                const Rgb colour = std::visit([](const auto& drawn) { return drawn.colour; }, item);
                const Rgb mapped = map(panel, colour).colour;
                ASSERT_NE(std::find(known.begin(), known.end(), mapped), known.end())
                    << palette.name << " panel " << static_cast<int>(panel) << ' '
                    << testing::PrintToString(colour);
            }
        }
    }
}

TEST_F(PaletteTest, ASeriesThatIsNotDrawnKeepsNoColourOfAnother) {
    chart.Slots = {"Price", "MA 15", "MA 180", "Price", "LR T.CL", "", "MLR 90"};
    const ChartPalette& palette = PaletteOf(ChartColours::Standard);
    const auto legend = SlotLegend(chart, 100, palette);
    EXPECT_EQ(legend[1].colour, (Rgb{0, 100, 0}));
    EXPECT_TRUE(legend[1].isDrawn);
    EXPECT_EQ(legend[2].colour, palette.quiet);
    EXPECT_FALSE(legend[2].isDrawn);
    // The lists give these two the colour of the series before them.
    EXPECT_EQ(legend[3].colour, palette.ink);
    EXPECT_EQ(legend[5].text, "");
    EXPECT_TRUE(legend[4].isDrawn);
    EXPECT_TRUE(legend[6].isDrawn);
    EXPECT_FALSE(SlotLegend(chart, 0, palette)[4].isDrawn);
}

TEST_F(PaletteTest, TheVolumeLegendNamesEachLineOnce) {
    chart.VolumeSeriesList = {"Volume", "LR", "Average", "LR", "WMA 30", ""};
    const std::vector<LegendEntry> legend = VolumeLegend(chart, 20, PaletteOf(ChartColours::Standard));
    ASSERT_EQ(legend.size(), 3U);
    EXPECT_EQ(legend[0].text, "Average");
    EXPECT_EQ(legend[1].text, "LR");
    EXPECT_EQ(legend[2].text, "WMA 30");
    EXPECT_FALSE(legend[2].isDrawn);
}

}  // namespace
}  // namespace brantlow
