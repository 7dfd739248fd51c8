// What a panel of the chart shows, as data: lines and circles in drawing order, and the texts of the labels
// beside it. The paint routines make it; the chart window, the picture files and the tests read it.
//
// Coordinates are twips from the panel's top left corner, y downwards. They are always finite and within
// kFarthestTwip of the corner, so that no painter meets a number that it cannot draw.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/rgb.h"

namespace brantlow {

struct DrawnLine {
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Rgb colour;
    bool operator==(const DrawnLine&) const = default;
};

struct DrawnCircle {
    float x = 0, y = 0, radius = 0;
    Rgb colour;
    bool operator==(const DrawnCircle&) const = default;
};

using DrawnItem = std::variant<DrawnLine, DrawnCircle>;

// The text that a paint gives a label, by the label's object name. A colour is given to the captions of the
// series slots only.
struct PanelLabel {
    std::string_view control;
    std::string text;
    std::optional<Rgb> colour;
    bool operator==(const PanelLabel&) const = default;
};

struct PanelDrawing {
    std::vector<DrawnItem> items;
    std::vector<PanelLabel> labels;
};

// Far outside of every panel, yet small enough for any painter.
inline constexpr double kFarthestTwip = 1e7;

// A point before it is narrowed to drawing coordinates.
struct ChartPoint {
    double x = 0, y = 0;
};

// The line from `from` to `to`. One that leaves the reach of kFarthestTwip is cut there and keeps its
// direction; one that lies beyond it altogether stays beyond it.
DrawnLine LineBetween(ChartPoint from, ChartPoint to, Rgb colour);

// A rectangle with its edges.
struct ChartBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    constexpr bool Holds(ChartPoint point) const {
        return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
    }
};

// What of a line lies in the box; nothing where it passes by.
std::optional<DrawnLine> CutTo(const ChartBox& box, const DrawnLine& line);

DrawnCircle CircleAround(ChartPoint centre, double radius, Rgb colour);

// What stands on a panel after `fresh` is drawn over `standing` without erasing it. Items of `standing` that
// `fresh` draws again are left out, so that painting over and over does not grow the list.
PanelDrawing PaintedOver(const PanelDrawing& standing, PanelDrawing fresh);

}  // namespace brantlow
