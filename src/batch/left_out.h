// What the commands over several tickers or files tell of those that failed: a line on standard error for
// each kind of failure, and the exit status that says whether anything was done.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "base/failure.h"
#include "batch/command.h"

namespace brantlow {

// Done without failures. Refused, with the first failure's sentence alone, when all of the call's `all`
// tickers (or what `things` calls them) failed, Partly when some did: "2 of 7 tickers left out: SENTENCE (and
// 1 more)", one line a kind of failure and cause, three at the most.
ExitStatus TellLeftOut(BatchCall& call, std::span<const Failure> failures, std::size_t all,
                       std::string_view things);

}  // namespace brantlow
