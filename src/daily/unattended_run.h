// The daily run over a table that no window shows: the newest end-of-day file of the recent list is loaded,
// updated and saved as the settings say, and the selector's table is saved where the settings run it. The
// main frame calls it in the chosen minute, whatever it shows.
#pragma once

#include <optional>
#include <string>

#include "daily/daily_update.h"
#include "indicators/analysis.h"
#include "selector/selector_run.h"

namespace brantlow {

inline constexpr std::string_view kNoRecentQuoteFile =
    "The daily update found no End of Day Quote File in the list of recent files.";

// What the run works with; all of it is the session's own.
struct UnattendedWork {
    Session& session;
    Web& web;
    const Hosts& hosts;
    Analysis& analysis;
    AlertedTickers& alerted;
    DayStore& days;
    std::string (*memoryInfo)() = ReadMemoryInfo;
    std::function<void(bool)> showAdjustSplits = {};
    AlarmPost* post = nullptr;
};

struct UnattendedRun {
    std::string file;  // what was updated, relative to Data/; empty when there was nothing
    DailyUpdate update;
    std::optional<SelectorOutcome> selection;  // where the selector ran
    RunReport report;
};

// The newest end-of-day file of the recent list that is there; empty when there is none.
std::string NewestQuoteFile(const Session& session);

// Saves the table of a selector run that nobody may have looked at.
std::error_code SaveEvaluations(const Session& session, const QuoteTable& evaluations);

// Runs over NewestQuoteFile. CurrentFile and CurrentTicker are afterwards what they were before. Nothing is
// asked of the person and nothing is said: what went wrong stands in the report.
UnattendedRun RunUnattended(const UnattendedWork& work);

}  // namespace brantlow
