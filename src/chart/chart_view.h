// Which bars of its drawing lists a chart shows. The lists hold every bar at its own place; a view stretches
// the bars that it shows over the panel and finds the vertical scale that holds them. The view of all bars is
// the drawing itself.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "chart/drawing.h"
#include "chart/panel_geometry.h"

namespace brantlow {

// Bars that fill a panel at kBarSpacing, and the fewest that a view shows.
inline constexpr std::size_t kWholeView = 279;
inline constexpr std::size_t kClosestView = 20;

struct ChartView {
    // The first bar shown, from 1, and for how many there is room.
    std::size_t first = 1;
    std::size_t count = kWholeView;
    bool operator==(const ChartView&) const = default;

    constexpr bool IsWhole() const { return first == 1 && count == kWholeView; }
    constexpr std::size_t Last() const { return first + count - 1; }
    constexpr double Spacing() const { return (kPanelRight - kPanelLeft) / (static_cast<double>(count) + 1); }
    // x of a bar on the panel, and of a place of the list.
    constexpr double X(double bar) const {
        return kPanelLeft + Spacing() * (bar - static_cast<double>(first) + 1);
    }
    constexpr double FromList(double x) const { return X((x - kPanelLeft) / kBarSpacing); }
    // The place of the list at `x` of the panel.
    constexpr double ToList(double x) const {
        return kPanelLeft + kBarSpacing * ((x - kPanelLeft) / Spacing() + static_cast<double>(first) - 1);
    }
    // The bar nearest to `x` of the panel among the bars from 1 to `barCount` that are shown; 0 for none.
    std::size_t BarAt(double x, std::size_t barCount) const;
};

// A panel as a view shows it: what it draws, and its scale.
struct ViewedPanel {
    std::vector<DrawnItem> items;
    ValueAxis axis;
};

// `axis` is the one with which `items` were drawn. Frame and alarms keep their places across; lines are cut
// at the axes. The scale is that of what can be seen, within the drawing's own.
ViewedPanel ViewOf(std::span<const DrawnItem> items, Panel panel, const ValueAxis& axis,
                   const ChartView& view);

}  // namespace brantlow
