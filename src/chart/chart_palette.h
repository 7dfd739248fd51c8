// The palettes of the chart. The drawing lists keep their own colours; a palette maps them as they are
// painted, and gives the legend its colours: each can be read on the palette's ground.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/rgb.h"
#include "chart/chart_session.h"

namespace brantlow {

// Desktop is Standard on a light desktop and Dark on a dark one.
enum class ChartColours : unsigned char { Standard, Distinct, Dark, Desktop };
inline constexpr std::size_t kChartColours = 4;

// Series that a price panel can have beside its first entry.
inline constexpr std::size_t kSeriesSlots = kSlotControls.size() - 1;

struct ChartPalette {
    std::string_view name;
    // Series, bars and marks in the colours of the lists. The fields below `hand` mean nothing then.
    bool ownColours;
    Rgb ground;
    // Of axes and bars, of words that matter less, of grid lines.
    Rgb ink, quiet, grid;
    // Of what was drawn by hand.
    Rgb hand;
    Rgb rising, falling, buy, sell, alarm, cursor;
    // Label14 to Label19, and in their order the series of the volume panel.
    std::array<Rgb, kSeriesSlots> series;
};

inline constexpr std::array<ChartPalette, 3> kChartPalettes = {{
    {"Standard",
     true,
     {255, 255, 255},
     {0, 0, 0},
     {90, 90, 90},
     {222, 226, 230},
     {0, 60, 190},
     {},
     {},
     {},
     {},
     {},
     {},
     {}},
    // Chosen so that the six and the ink differ for every kind of colour vision.
    {"Distinct",
     false,
     {255, 255, 255},
     {0, 0, 0},
     {90, 90, 90},
     {222, 226, 230},
     {0, 110, 90},
     {0, 90, 181},
     {176, 72, 0},
     {0, 90, 181},
     {176, 72, 0},
     {150, 110, 0},
     {90, 90, 90},
     {{{225, 40, 0}, {0, 80, 255}, {140, 40, 40}, {40, 0, 140}, {170, 80, 170}, {80, 0, 80}}}},
    {"Dark",
     false,
     {24, 28, 34},
     {222, 226, 230},
     {160, 168, 178},
     {52, 58, 66},
     {90, 220, 220},
     {96, 190, 140},
     {236, 120, 110},
     {96, 190, 140},
     {236, 120, 110},
     {250, 170, 40},
     {150, 200, 255},
     {{{255, 140, 80}, {255, 200, 0}, {80, 140, 170}, {140, 140, 110}, {225, 110, 255}, {170, 255, 170}}}},
}};

constexpr const ChartPalette& PaletteOf(ChartColours colours, bool isDarkDesktop = false) {
    if (colours == ChartColours::Desktop)
        colours = isDarkDesktop ? ChartColours::Dark : ChartColours::Standard;
    return kChartPalettes[static_cast<std::size_t>(colours)];
}

// How much two colours differ in light, 1 to 21, as accessibility guidelines count it.
double Contrast(Rgb a, Rgb b);

// What a text's colour differs from its ground by at least.
inline constexpr double kLegibleContrast = 4.5;

// `colour`, away from the light of `ground` as far as a text needs to be read there.
Rgb Legible(Rgb colour, Rgb ground);

struct MappedColour {
    Rgb colour;
    // A series, whose lines can be two pixels wide.
    bool isSeries = false;
};

// From the colours of the lists to those of a palette, for one chart as its last paint left it. A colour that
// no panel draws stays as it is.
class ColourMap {
  public:
    ColourMap(const ChartPalette& palette, const ChartSession& chart);

    // Here, as the painter asks it from a module that the engine is no part of.
    MappedColour operator()(Panel panel, Rgb colour) const {
        const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
            return row.panel == panel && row.from == colour;
        });
        return found == rows_.end() ? MappedColour{colour} : found->to;
    }

  private:
    struct Row {
        Panel panel;
        Rgb from;
        MappedColour to;
    };
    void AddPriceSeries(const ChartPalette& palette, const ChartSession& chart);
    void AddVolumeSeries(const ChartPalette& palette);
    void AddTheRest(const ChartPalette& palette);

    std::vector<Row> rows_;
};

// One name of the legend.
struct LegendEntry {
    std::string text;
    Rgb colour;
    // False where the series has too few bars for a line.
    bool isDrawn = true;
};

// Of Label13 to Label19, in their order. `barCount` is that of the series that were drawn.
std::array<LegendEntry, kSlotControls.size()> SlotLegend(const ChartSession& chart, std::size_t barCount,
                                                         const ChartPalette& palette);

// Of the series on the volume panel that have a line, each once.
std::vector<LegendEntry> VolumeLegend(const ChartSession& chart, std::size_t barCount,
                                      const ChartPalette& palette);

}  // namespace brantlow
