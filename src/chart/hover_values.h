// What a chart shows at one bar, in words and numbers: the bar as the history has it, the study, and every
// series that is drawn.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/rgb.h"
#include "chart/chart_palette.h"
#include "chart/chart_session.h"
#include "indicators/analysis.h"

namespace brantlow {

struct HoverValue {
    std::string name;
    // "-" where the series has no value at this bar; a band has two, "12.10 / 14.30".
    std::string text;
    // Of a series: its colour in the legend.
    std::optional<Rgb> colour;
};

// Date, open, high, low, close, change, volume, the study, the series of the price panel and those of the
// volume panel. Empty for a bar that there is not.
std::vector<HoverValue> HoverValuesAt(const ChartSession& chart, const Analysis& analysis, std::size_t bar,
                                      const ChartPalette& palette);

}  // namespace brantlow
