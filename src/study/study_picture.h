// Pictures of a study as SVG text: the mean way after a condition's signals, and an equity curve. The study
// window shows them, its report holds them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/portfolio.h"
#include "study/study_figures.h"

namespace brantlow {

// Each as "#rrggbb"; what is written or drawn stands out against the ground by 4.5 to 1 at least, but for the
// grid.
struct PictureColours {
    std::string_view ground;
    std::string_view grid;
    std::string_view words;
    std::string_view signals;
    std::string_view baseline;
};
inline constexpr PictureColours kPaperColours = {"#ffffff", "#dddddd", "#000000", "#24507f", "#b0602a"};
inline constexpr PictureColours kDarkColours = {"#1b1e20", "#3a3f44", "#eceef0", "#6fb1f5", "#f0a060"};

// The mean in percent, bars 0 up, with a band of two errors about it and the mean of any day.
std::string PathPicture(const std::vector<PathPoint>& path, Interval interval,
                        const PictureColours& colours = kPaperColours);

// What 1 has become, beside holding all tickers.
std::string EquityPicture(const ConditionStudy& study, const Portfolio& portfolio,
                          const PictureColours& colours = kPaperColours);

}  // namespace brantlow
