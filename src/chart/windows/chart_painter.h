// Replays the drawing of a chart panel with a painter: on the window, and in the pictures of the batch tool.
//
// A twip is a fifteenth of a logical pixel, or as many times that as the painter is told. Lines are one
// logical pixel wide and lie on whole pixels of the device, so that they are sharp on a screen of any density
// and at any scale.
#pragma once

#include <QColor>
#include <QSizeF>
#include <span>

#include "chart/chart_palette.h"
#include "chart/drawing.h"

class QPainter;

namespace brantlow {

inline QColor ColourOf(Rgb colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

// How many times its own size a panel is painted, across and down.
struct PaintScale {
    double across = 1;
    double down = 1;
    bool operator==(const PaintScale&) const = default;
};

// How the items of one panel are painted.
struct PaintStyle {
    PaintScale scale = {};
    // Without one the colours are those of the items.
    const ColourMap* colours = nullptr;
    Panel panel = Panel::Price;
    // Lines of series take two logical pixels, or all lines do.
    bool wideSeries = false;
    bool wide = false;
};

// Draws `items` in their order with the panel's top left corner at the painter's origin. `size` is the area
// in logical pixels; what reaches out of it is not drawn.
void PaintItems(QPainter& painter, std::span<const DrawnItem> items, QSizeF size,
                const PaintStyle& style = {});

}  // namespace brantlow
