// All the history that a ticker has, for who looks beyond the newest 279 bars.
#pragma once

#include <cstddef>
#include <string_view>

#include "indicators/working_series.h"

namespace brantlow {

// All bars of the twenty-one newest year files, folded where needed, without a window.
Failure LoadWholeHistory(const HistorySource& source, std::string_view ticker, Interval interval,
                         WorkingSeries& series);

// Bars `first` to `first` + `count` - 1 of `from` become the elements 1 to `count` of `to`, which has no
// others.
void CopyBars(const WorkingSeries& from, std::size_t first, std::size_t count, WorkingSeries& to);

}  // namespace brantlow
