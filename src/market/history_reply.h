// The history of a ticker as its host tells it: a header line, then a line a day, newest first.
#pragma once

#include <optional>
#include <string>

#include "market/market_data.h"
#include "market/market_request.h"

namespace brantlow {

// The reply to `s=TICKER&a=..&b=..&c=..&d=..&e=..&f=..`: month less one, day and year of the first and the
// last day. A date that cannot be read sets no bound. Days before `today` only: today's bar is the quote of
// the day, and its close is not known before tomorrow. Nothing for an unknown ticker.
std::optional<std::string> HistoryReply(const MarketRequest& request, const MarketData& data,
                                        const Date& today);

}  // namespace brantlow
