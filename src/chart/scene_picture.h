// The chart as its window shows it, as an SVG file: the stretch, the palette and the axes of the scene, with
// the names of the series as a legend.
#pragma once

#include <string>

#include "chart/chart_scene.h"

namespace brantlow {

std::string SvgOfScene(const ChartScene& scene);

}  // namespace brantlow
