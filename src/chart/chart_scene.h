// The chart as its window shows it now: what the last paint left, seen through the person's view, palette and
// axes. The window's painter draws from it; the drawing lists stay what they are.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "chart/chart_actions.h"
#include "chart/chart_options.h"
#include "chart/chart_palette.h"
#include "chart/chart_view.h"
#include "chart/chart_zoom.h"
#include "chart/hand_editor.h"
#include "chart/hand_lines.h"
#include "chart/hover_values.h"
#include "chart/round_scale.h"
#include "chart/time_axis.h"

namespace brantlow {

// What there is room for: twips of the panel between two marks of the time axis, marks at round prices, and
// twips between the marks of two weeks, not below `leastGap`.
struct AxisRoom {
    double leastGap = 0;
    std::size_t mostLevels = 0;
    double leastWeekGap = leastGap;
};

enum class HandRings : unsigned char { OfChosen, None };

class ChartScene {
  public:
    // Both outlive the scene.
    ChartScene(const ChartContext& context, const ChartOptions& options);

    // To be called after every paint, and when an option or the room has changed. The spans and references
    // that were handed out before are no longer good.
    void Update(const AxisRoom& room);

    // The chart's own lists, or those of another stretch of the history.
    ChartContext Shown() const { return zoom_.Shown(); }
    const ChartSession& Chart() const { return Shown().chart; }
    const Analysis& Data() const { return Shown().analysis; }
    const ChartOptions& Options() const { return options_; }
    const ChartPalette& Palette() const { return options_.Palette(); }
    const ColourMap& Colours() const { return colours_; }
    const ChartView& View() const { return zoom_.View(); }
    // The chart's own window, all of it.
    bool IsOwnWindow() const { return View().IsWhole() && !zoom_.IsWide(); }
    ChartZoom& Zoom() { return zoom_; }
    // Of the lists that are shown.
    std::size_t BarCount() const { return Data().series.BarCount; }

    std::span<const DrawnItem> Items(Panel panel) const;
    const ValueAxis& Axis(Panel panel) const { return axes_[static_cast<std::size_t>(panel)]; }
    // The lines of the grid on a panel, in its colour; none where the options want none.
    std::vector<DrawnItem> GridLines(Panel panel) const;
    // Empty where the options want none.
    const std::vector<AxisTick>& Ticks() const { return ticks_; }
    const std::vector<RoundLevel>& Levels() const { return levels_; }

    // What is drawn by hand on the price panel, as Update or ShowHand left it.
    HandEditor& Hand() { return hand_; }
    const HandItems& Drawn() const { return drawn_; }
    HandSheet Sheet() { return {zoom_, Axis(Panel::Price)}; }
    // To be called when the editor has done something. The rings of the chosen one stay out of pictures.
    void ShowHand(HandRings rings = HandRings::OfChosen);

    // The text of a label of a scale; `share` is where its line is, from 0 at the top to 1 at the bottom.
    std::string ScaleText(Panel panel, double share) const;
    // The text of a label over the panels: the dates are those of the bars that are seen, and without a bar
    // there is neither date nor price, as the series then hold what another ticker left.
    std::string HeaderText(const PanelLabel& label) const;
    // What the panels say of themselves in place of a scale: nothing where they have one.
    bool HasScale(Panel panel) const;

  private:
    const ChartOptions& options_;
    ChartZoom zoom_;
    ColourMap colours_;
    std::array<ViewedPanel, kPanels.size()> viewed_;
    std::array<ValueAxis, kPanels.size()> axes_;
    std::vector<AxisTick> ticks_;
    std::vector<RoundLevel> levels_;
    HandEditor hand_;
    HandItems drawn_;
};

}  // namespace brantlow
