// The verdicts of one ticker on its past days, for one thread of a study.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "indicators/analysis.h"
#include "selector/evaluation.h"
#include "selector/window_conditions.h"
#include "study/past_windows.h"
#include "study/study.h"
#include "study/ticker_bars.h"

namespace brantlow {

class PastVerdicts {
  public:
    PastVerdicts(std::string quoteFolder, const StudySpan& span, const WindowConditions& conditions);

    // The verdicts of each bar, in the order of `bars`. Files that cannot be read are a failure.
    Failure Take(const std::string& ticker, const TickerBars& bars, std::vector<BarVerdicts>& verdicts);

  private:
    // Loads the ticker as it stood on the day, apart from all that was loaded before.
    Failure LoadAnew(const std::string& ticker, std::int32_t day, BarVerdicts& verdicts);
    BarVerdicts LookBack(std::int32_t day);

    const std::string quoteFolder_;
    const StudySpan span_;
    const WindowConditions& conditions_;
    const std::size_t fewestBars_;
    PastWindows windows_;
    WindowBars bars_;
    std::unique_ptr<Analysis> anew_;  // made for the first ticker that needs it
    ConditionResults results_;
};

}  // namespace brantlow
