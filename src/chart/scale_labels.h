// The labels of the chart's scales and the lines whose values they show.
#pragma once

#include <array>
#include <string_view>

#include "chart/panel_geometry.h"

namespace brantlow {

struct ScaleLabel {
    std::string_view control;
    Panel panel;
    // Where its line is: 0 the panel's top line, 1 its bottom line.
    double share;
};

inline constexpr std::array kScaleLabels = {
    ScaleLabel{"Label51", Panel::Price, 0},   ScaleLabel{"Label25", Panel::Price, 0.25},
    ScaleLabel{"Label52", Panel::Price, 0.5}, ScaleLabel{"Label27", Panel::Price, 0.75},
    ScaleLabel{"Label53", Panel::Price, 1},   ScaleLabel{"Label54", Panel::Study, 0},
    ScaleLabel{"Label55", Panel::Study, 1},   ScaleLabel{"Label56", Panel::Volume, 0},
    ScaleLabel{"Label57", Panel::Volume, 1},
};

}  // namespace brantlow
