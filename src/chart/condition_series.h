// The chart of a verdict: which of the chart's series show the numbers that a condition looked at, and a
// chart that draws them. What a series is made of stands in series_tables.h alone, so a new row there is
// found here.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart_actions.h"
#include "selector/explanation.h"

namespace brantlow {

// Names of the pick lists' items.
struct SeriesWish {
    std::vector<std::string_view> price;  // at most as many as the chart has free slots
    std::string_view study;               // the first that is meant; empty for none
    std::vector<std::string_view> volume;
};

// The series behind numbers, each once, in the numbers' order. Numbers that no series shows are passed over.
SeriesWish SeriesOf(std::span<const LookedAt> values);
// The same of all lines of a condition.
SeriesWish SeriesOf(const ConditionExplanation& explanation);

// A chart that is asked for by another window.
struct ChartWish {
    std::string ticker;
    std::optional<Date> day;  // as it stood then; nothing for today
    Interval interval = Interval::Daily;
    // Drawn in place of the chosen ones; without any, those stay.
    SeriesWish series = {};
};

// Puts time frame and series of the wish into a chart that StartChart has begun, and paints it anew.
void ShowWish(ChartContext& context, const ChartWish& wish);

}  // namespace brantlow
