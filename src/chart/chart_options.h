// How a person wants charts to look, whatever they show. The choices lie over what the paint routines draw
// and change none of it. They are kept in the section "Chart" of the per-user store.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <system_error>

#include "base/files.h"
#include "chart/chart_palette.h"
#include "chart/panel_geometry.h"

namespace brantlow {

// The panels' parts of the height that they have together, in the order of Panel; their sum is 1.
using PanelShares = std::array<double, kPanels.size()>;

// A panel takes this part at least.
inline constexpr double kLeastShare = 0.08;

// As the panels' own heights are to each other.
PanelShares DefaultShares();

// `shares` after the border under `above` was moved by `part` of the whole height, downwards above 0. It
// stops where one of its two panels has kLeastShare left; the third stays as it is.
PanelShares WithBorderMoved(PanelShares shares, Panel above, double part);

struct ChartOptions {
    // The panels take the space that their window has. Off, they stand in their own size, as kPanels tells.
    bool fitToWindow = true;
    // Of a chart that fits its window: the marks of the time axis, prices at round values beside those of the
    // scale, and lines of a grid at both.
    bool timeAxis = true;
    bool roundPrices = false;
    bool grid = false;
    // The lines of series are two pixels wide.
    bool wideLines = false;
    ChartColours colours = ChartColours::Desktop;
    PanelShares shares = DefaultShares();
    // As the desktop is now; not kept.
    bool isDarkDesktop = false;

    // A chart in its own size does not follow the desktop.
    const ChartPalette& Palette() const { return PaletteOf(colours, fitToWindow && isDarkDesktop); }

    bool operator==(const ChartOptions&) const = default;
};

// What is missing or cannot be read is as in a new installation.
ChartOptions LoadChartOptions(const Path& storeFile);

// Writes the choices that differ from those in the store.
std::error_code SaveChartOptions(const Path& storeFile, const ChartOptions& options);

}  // namespace brantlow
