// Whether a ticker can be asked for on the web. Addresses go out as they are, not encoded, so a ticker with a
// character that means something in an address would ask for other tickers than its own. The requests of
// quotes, history, alerts and research pages leave such a ticker out; adding one to a table is refused.
#pragma once

#include <string>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kUnaskableReason =
    "a ticker with a blank or one of & # ? % , cannot be asked for";

// False for a ticker with a control character, a blank, or one of & # ? % and the comma that parts tickers.
bool IsAskableTicker(std::string_view ticker);

// Why such a ticker is left out: "A&B: a ticker with a blank or one of & # ? % , cannot be asked for".
// Control characters show as "?".
std::string UnaskableTickerSentence(std::string_view ticker);

}  // namespace brantlow
