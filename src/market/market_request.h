// The target of a request in its parts. The first segments of the path may choose a market ("/de") and a
// fault ("/fault=cut"), so that a base address in Hosts.ini asks for them with every path behind it.
#pragma once

#include <string>
#include <string_view>

#include "acquire/web/hosts.h"

namespace brantlow {

struct MarketRequest {
    std::string_view target;  // all of it, as it came
    std::string_view path;    // behind the chosen market and fault, as it came; begins with a slash
    std::string_view query;   // behind the question mark, as it came
    Decimals decimals = Decimals::Point;
    std::string fault;  // empty when none is asked for
};

// Takes any bytes. The request lives no longer than `target`.
MarketRequest ReadRequest(std::string_view target);

// The value of the query's first `name`, with its %XX turned to bytes; empty when it has none. A plus sign
// stands for itself: it may stand in an address for mail.
std::string QueryValue(std::string_view query, std::string_view name);

// `text` with each whole %XX turned into its byte. Other percent signs stay.
std::string WithoutPercents(std::string_view text);

// The path in front of the requests of a market: "/de" for Germany, empty for the United States.
std::string MarketPrefix(const MarketRow& market);

}  // namespace brantlow
