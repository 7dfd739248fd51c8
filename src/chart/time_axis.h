// The marks of the chart's time axis: years, quarters, months or weeks, as many as there is room for.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "chart/chart_view.h"
#include "indicators/number_series.h"

namespace brantlow {

struct AxisTick {
    // The first bar of the span that it names.
    std::size_t bar = 0;
    // "2026", "Mar" or "Mar 9".
    std::string text;
    bool isYear = false;
    bool operator==(const AxisTick&) const = default;
};

// The marks of the bars that `view` shows, `leastGap` twips of the panel apart at least, and weeks, whose
// texts are longer, `leastWeekGap`. Bars whose date is none have no mark.
std::vector<AxisTick> TimeAxisOf(const TextSeries& dates, std::size_t barCount, const ChartView& view,
                                 double leastGap, double leastWeekGap);

}  // namespace brantlow
