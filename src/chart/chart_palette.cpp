#include "chart/chart_palette.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "chart/panel_colours.h"
#include "chart/series_tables.h"

namespace brantlow {

namespace {

constexpr double kFullChannel = 255;

// What a channel gives of the light that it stands for.
double LinearChannel(unsigned char channel) {
    constexpr double kLinearUpTo = 0.04045;
    const double value = channel / kFullChannel;
    if (value <= kLinearUpTo) return value / 12.92;
    return std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb colour) {
    return 0.2126 * LinearChannel(colour.red) + 0.7152 * LinearChannel(colour.green) +
           0.0722 * LinearChannel(colour.blue);
}

unsigned char Between(unsigned char from, unsigned char to, double part) {
    return static_cast<unsigned char>(std::lround(from + (to - from) * part));
}

// What else the panels draw, and what of a palette it takes.
struct FixedColour {
    Panel panel;
    Rgb from;
    Rgb ChartPalette::*to;
};
constexpr FixedColour kFixedColours[] = {
    {Panel::Price, kBlack, &ChartPalette::ink},
    {Panel::Price, kFallingBody, &ChartPalette::falling},
    {Panel::Price, kRisingBody, &ChartPalette::rising},
    {Panel::Price, kBuyMark, &ChartPalette::buy},
    {Panel::Price, kSellMark, &ChartPalette::sell},
    {Panel::Price, kAlarmMark, &ChartPalette::alarm},
    {Panel::Price, kRegressionColour, &ChartPalette::quiet},
    {Panel::Price, kCursorColour, &ChartPalette::cursor},
    {Panel::Study, kBlack, &ChartPalette::ink},
    {Panel::Study, kNearBlack, &ChartPalette::ink},
    {Panel::Study, kStudyUp, &ChartPalette::rising},
    {Panel::Study, kStudyDown, &ChartPalette::falling},
    {Panel::Study, kStudyPositive, &ChartPalette::rising},
    {Panel::Study, kStudyNegative, &ChartPalette::falling},
    {Panel::Study, kCursorColour, &ChartPalette::cursor},
    {Panel::Volume, kBlack, &ChartPalette::ink},
    {Panel::Volume, kVolumeUp, &ChartPalette::rising},
    {Panel::Volume, kVolumeDown, &ChartPalette::falling},
    {Panel::Volume, kCursorColour, &ChartPalette::cursor},
};

// What the tables know of a series of the price panel; nothing for the price and for unknown names.
struct KnownSeries {
    Rgb line;
    Rgb caption;
    std::size_t fromBar;
};
std::optional<KnownSeries> SeriesNamed(std::string_view name) {
    if (const PriceSeries* row = RowNamed(kPriceSeries, name))
        return KnownSeries{row->line, row->caption, row->fromBar};
    if (const WholeWindowSeries* row = RowNamed(kWholeWindowSeries, name))
        return KnownSeries{row->colour, row->colour, 1};
    return std::nullopt;
}

// The colour of the nth slot's series in a palette of its own; the first entry is drawn as the bars would be.
Rgb SlotColour(const ChartPalette& palette, std::size_t slot) {
    return slot == 0 ? palette.ink : palette.series[slot - 1];
}

// The slot that draws this series: the first that holds it.
std::size_t SlotOf(const ChartSession& chart, std::string_view series) {
    const auto found = std::find(chart.Slots.begin(), chart.Slots.end(), series);
    return static_cast<std::size_t>(found - chart.Slots.begin());
}

}  // namespace

double Contrast(Rgb a, Rgb b) {
    constexpr double kStrayLight = 0.05;
    const double first = Luminance(a) + kStrayLight;
    const double second = Luminance(b) + kStrayLight;
    return std::max(first, second) / std::min(first, second);
}

Rgb Legible(Rgb colour, Rgb ground) {
    constexpr Rgb kWhite = {255, 255, 255};
    constexpr int kSteps = 64;
    const Rgb end = Contrast(kBlack, ground) > Contrast(kWhite, ground) ? kBlack : kWhite;
    Rgb shade = colour;
    for (int step = 1; step <= kSteps && Contrast(shade, ground) < kLegibleContrast; ++step) {
        const double part = static_cast<double>(step) / kSteps;
        shade = {Between(colour.red, end.red, part), Between(colour.green, end.green, part),
                 Between(colour.blue, end.blue, part)};
    }
    return shade;
}

ColourMap::ColourMap(const ChartPalette& palette, const ChartSession& chart) {
    AddPriceSeries(palette, chart);
    AddVolumeSeries(palette);
    AddTheRest(palette);
}

void ColourMap::AddPriceSeries(const ChartPalette& palette, const ChartSession& chart) {
    for (std::size_t slot = 0; slot < chart.Slots.size(); ++slot) {
        const std::optional<KnownSeries> series = SeriesNamed(chart.Slots[slot]);
        if (!series) continue;
        const Rgb colour = palette.ownColours ? series->line : SlotColour(palette, slot);
        rows_.push_back({Panel::Price, series->line, {colour, true}});
    }
}

void ColourMap::AddVolumeSeries(const ChartPalette& palette) {
    for (std::size_t i = 0; i < kVolumeSeries.size(); ++i) {
        const Rgb own = kVolumeSeries[i].colour;
        rows_.push_back({Panel::Volume, own, {palette.ownColours ? own : palette.series[i], true}});
    }
}

void ColourMap::AddTheRest(const ChartPalette& palette) {
    if (palette.ownColours) return;
    for (const FixedColour& row : kFixedColours) rows_.push_back({row.panel, row.from, {palette.*row.to}});
}

std::array<LegendEntry, kSlotControls.size()> SlotLegend(const ChartSession& chart, std::size_t barCount,
                                                         const ChartPalette& palette) {
    std::array<LegendEntry, kSlotControls.size()> legend;
    for (std::size_t slot = 0; slot < legend.size(); ++slot) {
        const std::string& name = chart.Slots[slot];
        LegendEntry& entry = legend[slot];
        entry = {name, palette.ink};
        const std::optional<KnownSeries> series = SeriesNamed(name);
        if (!series) continue;
        entry.isDrawn = barCount >= series->fromBar;
        const Rgb own = palette.ownColours ? series->caption : SlotColour(palette, SlotOf(chart, name));
        entry.colour = entry.isDrawn ? Legible(own, palette.ground) : palette.quiet;
    }
    return legend;
}

std::vector<LegendEntry> VolumeLegend(const ChartSession& chart, std::size_t barCount,
                                      const ChartPalette& palette) {
    std::vector<LegendEntry> legend;
    const auto& entries = chart.VolumeSeriesList;
    for (std::size_t i = 0; i < kVolumeSeries.size(); ++i) {
        const VolumeSeries& row = kVolumeSeries[i];
        if (std::find(entries.begin(), entries.end(), row.name) == entries.end()) continue;
        const bool isDrawn = barCount >= row.fromBar;
        const Rgb own = palette.ownColours ? row.colour : palette.series[i];
        legend.push_back(
            {std::string(row.name), isDrawn ? Legible(own, palette.ground) : palette.quiet, isDrawn});
    }
    return legend;
}

}  // namespace brantlow
