// What was drawn by hand, on the price panel: from days and prices to lines and words in twips and back, with
// the pull of a bar's high, low and close.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/rgb.h"
#include "chart/chart_session.h"
#include "chart/chart_view.h"
#include "chart/chart_zoom.h"
#include "chart/drawing.h"
#include "indicators/working_series.h"
#include "store/hand_drawings.h"

namespace brantlow {

// What is as near to a point of the price panel that a person means it, in twips, and what a letter of a text
// takes there.
struct HandReach {
    double across = 90;
    double down = 90;
    double letter = 100;
    double line = 200;
};

struct HandText {
    std::string text;
    // Its left end and the lower edge of its letters.
    double x = 0, y = 0;
    bool operator==(const HandText&) const = default;
};

struct HandItems {
    // Lines, and rings at the places of a drawing that is chosen.
    std::vector<DrawnItem> lines;
    std::vector<HandText> texts;
};

// The price panel as it is shown now. Its parts outlive it.
class HandSheet {
  public:
    // `axis` is the scale of the panel in this view.
    HandSheet(ChartZoom& zoom, const ValueAxis& axis) : zoom_(zoom), axis_(axis) {}

    ChartPoint PlaceOf(const HandPoint& point) const;
    // The bar nearest to `x`, from 1 to the newest of the lists, and its day; nothing where there is no bar.
    std::optional<std::size_t> BarAt(double x) const;
    // The place under a point: the day of the nearest bar, and the price. `pull` moves the price to the bar's
    // high, low or close where that is as near as one and a half reaches down.
    std::optional<HandPoint> PointAt(ChartPoint at, const HandReach& reach, bool pull) const;
    // `point` so many bars on, and `height` twips further down.
    HandPoint Moved(const HandPoint& point, std::ptrdiff_t bars, double height) const;
    // The close of a bar of the lists, as a place of the panel.
    ChartPoint CloseOf(std::size_t bar) const;

    // The lines of a drawing in whole, from axis to axis, cut at the panel's edges.
    std::vector<DrawnLine> LinesOf(const HandDrawing& drawing, Rgb colour) const;
    // The items of all; `chosen` has its rings.
    HandItems ItemsOf(std::span<const HandDrawing> drawings, std::optional<std::size_t> chosen,
                      Rgb colour) const;
    // Whether `at` is as near as a reach to a drawing.
    bool IsOn(const HandDrawing& drawing, ChartPoint at, const HandReach& reach) const;

  private:
    const WorkingSeries& Series() const { return zoom_.Shown().analysis.series; }

    ChartZoom& zoom_;
    const ValueAxis& axis_;
};

}  // namespace brantlow
