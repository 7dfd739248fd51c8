// The whole chart as one picture: where the three panels stand and which texts stand around them. Picture
// files of every kind are made from it (chart_svg.h, the window's painter).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/rgb.h"
#include "chart/chart_session.h"
#include "chart/drawing.h"
#include "chart/panel_geometry.h"
#include "indicators/working_series.h"

namespace brantlow {

// All lengths are twips from the picture's top left corner.
struct PlacedPanel {
    const PanelDrawing* drawing = nullptr;
    double x = 0, y = 0;
    // What lies outside of it is not shown.
    double width = 0, height = 0;
    // Which of the drawing's items are two pixels wide in an SVG file; none where it is empty.
    std::vector<bool> wide = {};
};

enum class TextAlign : unsigned char { Left, Centre, Right };

// The colour of words that matter less.
inline constexpr Rgb kQuietText = {90, 90, 90};

// One line of text. `x` is its left end, its middle or its right end, `y` its base line, `size` the height of
// its font.
struct PlacedText {
    std::string text;
    double x = 0, y = 0;
    TextAlign align = TextAlign::Left;
    double size = 0;
    bool bold = false;
    Rgb colour = kBlack;
};

struct ChartPicture {
    Rgb ground = {255, 255, 255};
    double width = 0, height = 0;
    std::vector<PlacedPanel> panels;
    std::vector<PlacedText> texts;
};

// The picture of what stands on the panels of `chart`, which has to outlive it. A text too long for its place
// is set smaller.
ChartPicture LayOutPicture(const ChartSession& chart, const WorkingSeries& series);

// What an empty price panel says: nothing unless the series has no bar.
std::optional<std::string> EmptyPriceText(const WorkingSeries& series);
// What a study strip says on which the last paint found no value to scale.
std::optional<std::string> EmptyStudyText(const ChartSession& chart);

// The name of a time frame as it stands in the picture.
std::string_view TimeFrameName(int timeFrame);

// The colour in which a series of the volume panel is drawn; black for the bars of the volume itself.
Rgb VolumeSeriesColour(std::string_view name);

}  // namespace brantlow
