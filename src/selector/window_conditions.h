// The stored conditions as they are judged over a window whose values are computed when they are asked for
// (window_bars.h): by a selector run over each ticker's newest bar, by the study over many past ones.
#pragma once

#include <bitset>
#include <cstddef>
#include <vector>

#include "selector/evaluation.h"
#include "selector/window_bars.h"

namespace brantlow {

// Which fields of the records a set of conditions looks at, by their place in a record.
using FieldSet = std::bitset<kHistoryFieldCount>;
struct LookedAtFields {
    FieldSet everyBar;    // of every bar of the window, the close among them
    FieldSet newestBars;  // of the newest kNewestBars alone
};
inline constexpr std::size_t kNewestBars = 16;

class WindowConditions {
  public:
    explicit WindowConditions(const SettingsTables& settings);

    std::size_t Count() const { return steps_.size(); }
    const CompiledConditions& Compiled() const { return compiled_; }
    // Those that hold at the newest bar of the window.
    BarVerdicts Judge(const WindowBars& bars) const;

    // What judging may look at, the short trend of a hit's colour included. The indicators are those that a
    // verdict, or what it is made of, may hang on.
    const LookedAtFields& Fields() const { return fields_; }
    const std::vector<IndicatorSlot>& IndicatorSlots() const { return indicators_; }

  private:
    CompiledConditions compiled_;
    // Of each condition those that cost least first, since the first that fails settles it whatever the
    // order.
    std::vector<std::vector<TestStep>> steps_;
    LookedAtFields fields_;
    std::vector<IndicatorSlot> indicators_;
};

}  // namespace brantlow
