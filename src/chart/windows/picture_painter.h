// The whole chart as a PNG file, painted from the picture that also makes the SVG, with the painter of the
// chart window.
#pragma once

#include <QImage>
#include <string>

#include "chart/chart_picture.h"

namespace brantlow {

// A twip is a fifteenth of a pixel. Texts need an application object.
QImage PaintPicture(const ChartPicture& picture);

// The bytes of a PNG file; empty when it is too large for memory.
std::string PngOf(const ChartPicture& picture);

}  // namespace brantlow
