// The verdicts of every name and the value of every slot on the newest bar of each ticker of a table, held so
// small that a condition is counted anew at each edit. The condition editor fills it in the background.
//
// Verdicts are those of a selector run over the table that starts with an empty series: what a ticker leaves
// behind is there for the next.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "indicators/analysis.h"
#include "selector/value_slots.h"
#include "shell/settings/condition_set.h"

namespace brantlow {

// What one line of a condition does to the tickers.
struct LineHits {
    std::size_t alone = 0;  // it holds for so many
    std::size_t left = 0;   // it and all lines before it hold for so many, those passed over aside
};

struct ConditionHits {
    std::size_t hits = 0;
    // The names in their order, then the filled slots.
    std::vector<LineHits> lines;
};

class HitStore {
  public:
    // Forgets what it holds and makes room for so many tickers.
    void Begin(std::size_t tickers);
    // The next ticker, as it stands in the series. One with too few bars to evaluate is no hit of anything,
    // and neither is one that cannot be read.
    void Take(const Analysis& analysis);
    void TakeNothing();

    std::size_t Tickers() const { return taken_; }
    ConditionHits Count(const Condition& condition) const;
    std::size_t Bytes() const;

  private:
    using Bits = std::vector<std::uint64_t>;  // one bit a ticker
    // Where a line holds and where it fails; elsewhere it is passed over.
    struct Verdicts {
        Bits holds;
        Bits fails;
    };

    Verdicts LineOfName(std::string_view name) const;
    Verdicts LineOfSlot(std::size_t slot, std::string_view text) const;
    std::vector<Verdicts> LinesOf(const Condition& condition) const;
    Bits Nothing() const { return Bits(words_, 0); }

    std::size_t words_ = 0;
    std::size_t taken_ = 0;
    std::vector<Verdicts> names_;  // by place in NamedTests
    std::array<std::vector<SlotValue>, kSlotCount> values_;
};

// Loads the tickers one after another and takes each. `goOn(done)` is asked after each ticker; false ends the
// walk and gives false.
bool WalkForHits(const HistorySource& source, Interval interval, const std::vector<std::string>& tickers,
                 HitStore& hits, const std::function<bool(std::size_t done)>& goOn);

}  // namespace brantlow
