// The chart's picture as an SVG file, written from the drawing lists. A browser shows it as the chart window
// does: lines one pixel wide, not smoothed.
#pragma once

#include <string>

#include "chart/chart_picture.h"

namespace brantlow {

// A whole SVG document; its natural size is one pixel for 15 twips.
std::string SvgOf(const ChartPicture& picture);

}  // namespace brantlow
