// The fourteen candlestick patterns of the selector, each a set of clauses over the bar under test and the up
// to four bars before it. They are this program's own definitions and differ in places from the textbook
// pattern of the same name. test_table.h binds them to their names and their guard.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "indicators/analysis.h"

namespace brantlow {

class CandleReader;

// Where a pattern reads its bars, whatever holds them; it lives as long as those.
class BarSource {
  public:
    template <class Bars>
    explicit BarSource(const Bars& bars)
        : bars_(&bars),
          stored_([](const void* from, NumberSeries WorkingSeries::*array, std::size_t bar) {
              return static_cast<const Bars*>(from)->Stored(array, bar);
          }),
          computed_([](const void* from, IndicatorArray array, std::size_t bar) {
              return static_cast<const Bars*>(from)->Computed(array, bar);
          }) {}

    double Stored(NumberSeries WorkingSeries::*array, std::size_t bar) const {
        return stored_(bars_, array, bar);
    }
    double Computed(IndicatorArray array, std::size_t bar) const { return computed_(bars_, array, bar); }

  private:
    const void* bars_;
    double (*stored_)(const void*, NumberSeries WorkingSeries::*, std::size_t);
    double (*computed_)(const void*, IndicatorArray, std::size_t);
};

struct CandlePattern {
    std::string_view name;
    bool (*holds)(CandleReader& bars);
};

std::span<const CandlePattern> CandlePatterns();

// Whether all clauses hold with `bar` as the newest bar. All of them are computed before any is judged:
// nothing when one cannot be computed (a bar without a range where its body ratio is asked for, a bar before
// element 0), even where another clause is false.
std::optional<bool> PatternHolds(const CandlePattern& pattern, const BarSource& bars, std::size_t bar);

}  // namespace brantlow
