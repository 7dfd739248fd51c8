// How a command tells what its run over tickers did: the report's lines on standard error, the list in "Last
// Run.txt", and the exit status.
#pragma once

#include "batch/command.h"
#include "shell/run_report.h"

namespace brantlow {

// A command says no more than these lines of a run.
inline constexpr std::size_t kMostToldLines = 3;

// Done, Partly or Refused by the report's extent; Partly where the list cannot be kept. `note`, where there
// is one, stands behind the lines of a run that did something. A report without tickers leaves the list of
// the run before.
ExitStatus TellRun(BatchCall& call, const RunReport& report, std::string note = {});

struct ToldRun {
    ExitStatus status = ExitStatus::Refused;
    std::size_t lines = 0;  // at most kMostToldLines
};

// TellRun for callers that may have a line of their own behind it.
ToldRun TellRunCounted(BatchCall& call, const RunReport& report, std::string note = {});

}  // namespace brantlow
