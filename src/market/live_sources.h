// The live sources that the practice market plays, with the practice prices: their paths, keys, refusals and
// the forms of their replies.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "market/market_data.h"
#include "market/market_reply.h"
#include "market/market_request.h"

namespace brantlow {

// The headers of a request by which sources know who asks.
struct MarketHeaders {
    std::string authorization;
    std::string keyId;      // APCA-API-KEY-ID
    std::string keySecret;  // APCA-API-SECRET-KEY
    std::string userAgent;
};

inline constexpr std::array<std::string_view, 6> kPlayedSources = {"massive", "alpaca", "yahoo",
                                                                   "nasdaq",  "tiingo", "sec"};

// Any key serves but this one.
inline constexpr std::string_view kWrongKey = "wrong";

// The reply of the source whose path it is; nothing for a path of none. The faults "badkey", "limit", "plan"
// and "notyet" are played in the source's own words.
std::optional<MarketReply> AnswerLiveSource(const MarketRequest& request, const MarketHeaders& headers,
                                            const MarketData& data, const Date& today);

}  // namespace brantlow
