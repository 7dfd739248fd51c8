// The series of a ticker for who writes its history anew.
#pragma once

#include <string_view>
#include <vector>

#include "indicators/working_series.h"

namespace brantlow {

// As LoadFullSeries, but for lines that were cut off at the end of a year file (store/year_growth.h): they
// are no days, and their files are added to `halfLines`.
Failure LoadSeriesToRewrite(const HistorySource& source, std::string_view ticker, WorkingSeries& series,
                            std::vector<Path>& halfLines);

}  // namespace brantlow
