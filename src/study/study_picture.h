// Pictures of a study as SVG text: the mean way after a condition's signals, and an equity curve. The study
// window shows them, its report holds them.
#pragma once

#include <string>
#include <vector>

#include "study/portfolio.h"
#include "study/study_figures.h"

namespace brantlow {

// The mean in percent, bars 0 up, with a band of two errors about it and the mean of any day.
std::string PathPicture(const std::vector<PathPoint>& path, Interval interval);

// What 1 has become, beside holding all tickers.
std::string EquityPicture(const ConditionStudy& study, const Portfolio& portfolio);

}  // namespace brantlow
