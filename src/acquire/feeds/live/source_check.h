// The trial of a live source: it is asked once for each thing that it gives, and what came is told with its
// first and last rows, or with the failure in the server's own words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_client.h"

namespace brantlow {

// The ticker that is asked for where a person names none.
inline constexpr std::string_view kCheckedTicker = "AAPL";

struct SourceChecked {
    Capability capability = Capability::Quotes;
    SourceOutcome outcome;
    // "20 rows, 2026-10-23 to 2026-11-20", or the outcome as a person reads it.
    std::string words;
    // The first and the last three rows, a line each, with "..." between them where more came.
    std::vector<std::string> rows;
    // What was asked, as it may be shown, and the first lines of what came; for a failure.
    std::string address;
    std::string replyBegin;

    // That there is nothing to tell of a ticker or a day is an answer.
    bool IsFailure() const { return !IsAnswer(outcome.result); }
};

// Asks for one of the things that the source gives.
SourceChecked CheckCapability(SourceWorld& world, SourceClient& client, Capability capability,
                              const std::string& ticker);

// What a person is shown of it, lines ended by "\n".
std::string CheckedText(const SourceChecked& checked);

}  // namespace brantlow
