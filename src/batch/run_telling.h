// How a command tells what its run over tickers did: the report's lines on standard error, the list in "Last
// Run.txt", and the exit status.
#pragma once

#include "batch/command.h"
#include "shell/run_report.h"

namespace brantlow {

// Done, Partly or Refused by the report's extent; Partly where the list cannot be kept. A report without
// tickers leaves the list of the run before.
ExitStatus TellRun(BatchCall& call, const RunReport& report);

}  // namespace brantlow
