// The geometry that the three panels of the chart share, in twips: a panel is as large at every screen size.
// Drawing routines map bars and values to points with it, the mouse read-outs map points back.
#pragma once

#include <array>
#include <cstddef>

namespace brantlow {

inline constexpr double kPanelLeft = 50;
inline constexpr double kPanelRight = 12650;
// Between two bars.
inline constexpr double kBarSpacing = 45;
// How far the horizontal rules stick out to the left of the left axis.
inline constexpr double kTickLength = 25;
// How far the vertical axes run past the bottom line.
inline constexpr double kAxisOverrun = 50;

enum class Panel : unsigned char { Price, Study, Volume };

struct PanelForm {
    // Object name of the panel.
    const char* control;
    // y of the top and the bottom line.
    double topY;
    double bottomY;

    constexpr double Height() const { return bottomY - topY; }
};

inline constexpr std::array<PanelForm, 3> kPanels = {{
    {"Picture1", 50, 6050},
    {"Picture2", 50, 1120},
    {"Picture3", 50, 1120},
}};

constexpr const PanelForm& FormOf(Panel panel) {
    return kPanels[static_cast<std::size_t>(panel)];
}

// Where the marks of alarms stand.
inline constexpr double kAlarmX = 12645;

// The area that shows all that a panel draws: axes with their overrun, rules and marks.
inline constexpr double kPanelMargin = 50;
inline constexpr double kPanelWidth = kPanelRight + kPanelMargin;
constexpr double PanelHeight(Panel panel) {
    return FormOf(panel).bottomY + kAxisOverrun + kPanelMargin;
}

// x of bar `i`; x(0) is the left axis.
constexpr double BarX(std::size_t i) {
    return kPanelLeft + kBarSpacing * static_cast<double>(i);
}

// The vertical scale of a panel as a paint found it.
struct ValueAxis {
    double topY = 0;
    // The value at the top line, and twips a unit of value. A negative scale turns the panel upside down.
    double top = 0;
    double scale = 0;

    // Not finite where value or scale are too large; LineBetween and CircleAround take care of that.
    constexpr double Y(double value) const { return topY + scale * (top - value); }
    // The value at `y`.
    constexpr double ValueAt(double y) const { return top - (y - topY) / scale; }
};

}  // namespace brantlow
