// The chart's Buy and Sell pair replayed over every ticker of a table: its sums and the list of trades as one
// JSON object. For the backtest command with a FILE.
#pragma once

#include <string>

#include "batch/command.h"

namespace brantlow {

// Each ticker as its own chart would replay it. A ticker that stands in the table twice counts once; one
// whose files cannot be read is left out and told. Ctrl-C prints what there is.
ExitStatus BackTestTable(BatchCall& call, const std::string& name);

}  // namespace brantlow
