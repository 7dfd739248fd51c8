// The commands that a live source may serve in place of the standard source: populate, history, update,
// split-calendar and fundamentals ask here first.
#pragma once

#include <optional>

#include "batch/command.h"

namespace brantlow {

// Each does the command from the source that --source names or the settings choose, and gives its status;
// nothing where the standard source serves.
std::optional<ExitStatus> PopulateLive(BatchCall& call);
std::optional<ExitStatus> HistoryLive(BatchCall& call);
std::optional<ExitStatus> UpdateLive(BatchCall& call);
std::optional<ExitStatus> SplitCalendarLive(BatchCall& call);
std::optional<ExitStatus> FundamentalsLive(BatchCall& call);

}  // namespace brantlow
