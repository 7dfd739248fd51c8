// What came of asking a live source, as a value: rows, or the kind of failure with the server's own words.
// Readers, the client and the runs over a table hand it on; the faces turn it into a sentence.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brantlow {

enum class SourceResult : std::uint8_t {
    Rows,
    NoData,           // nothing in the asked span
    NotYetPublished,  // the asked day will come later
    UnknownSymbol,
    NoKey,  // none is kept here
    BadKey,
    NotInPlan,    // the key's plan does not hold what was asked
    NotEntitled,  // the same, of this one symbol
    RateLimited,
    ChangedFormat,
    Network,
    Refused,  // the reply's rows cannot be true, or do not fit what is stored
    Stopped,
};

enum class LimitScope : std::uint8_t { Minute, Hour, Day, Month };

struct SourceOutcome {
    SourceResult result = SourceResult::Rows;
    // The server's own words or what was wrong, one line, without keys; empty for rows.
    std::string words = {};
    // Of a RateLimited: how long, and until when as seconds since 1970 (0 when it is not known).
    LimitScope scope = LimitScope::Minute;
    double waitSeconds = 0;
    double until = 0;

    bool Done() const { return result == SourceResult::Rows; }
};

// An answer about the ticker itself, which a run does not count as a failure.
bool IsAnswer(SourceResult result);

// A failure that the next ticker would meet as well: a run ends with it.
bool EndsRun(const SourceOutcome& outcome);

// "unknown symbol", "rate limited" ...: as a definition writes it and a person reads it.
std::string_view ResultName(SourceResult result);
std::optional<SourceResult> ResultOfName(std::string_view name);

std::string_view ScopeName(LimitScope scope);
std::optional<LimitScope> ScopeOfName(std::string_view name);
double SecondsOf(LimitScope scope);

// A moment in seconds since 1970 as "14:32", with the day in front where that is not today.
std::string MomentText(double epochSeconds);

// The outcome as a part of a sentence: "unknown symbol: Ticker not found."
std::string OutcomeText(const SourceOutcome& outcome);

// Text of a server as one line of at most 200 bytes: control characters become blanks, runs of blanks one.
std::string ServerWords(std::string_view text);

// `address` as it may be shown: the values of parameters that hold a key are replaced by ***.
std::string MaskedAddress(std::string_view address);

}  // namespace brantlow
