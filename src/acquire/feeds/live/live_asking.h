// Asks a live source for the days of many tickers, as many at a time as its form takes, and hands on what
// came of each. A failure that the next request would meet as well ends the asking: the other tickers have it
// too.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_client.h"

namespace brantlow {

struct TickersQuestion {
    Capability capability = Capability::History;
    std::chrono::sys_days from;
    std::chrono::sys_days to;
    // The word of the run, told with the time that is left where that is worth telling; empty for neither.
    std::string_view statusWord = {};
};

// "12 min left", "1 h 40 min left": whole minutes, rounded up.
std::string LeftText(double seconds);
// Tells `word` with the time that so many requests of the source still take, from a minute on.
void ShowTimeLeft(Session& session, const SourceClient& client, std::string_view word, std::size_t requests);

using TakeAnswer = std::function<void(const std::string& ticker, TickerAnswer answer)>;

// Every ticker is handed on once, in an order of the source's. A dead host is given up after three requests
// in a row. Progress goes to the session's person, the ticker in work to the session. `take` may change the
// question for the requests that follow.
void AskTickers(SourceClient& client, SourceWorld& world, const TickersQuestion& question,
                const std::vector<std::string>& tickers, const TakeAnswer& take);

}  // namespace brantlow
