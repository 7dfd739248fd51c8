// The practice market's answer to a request: which reply stands at which path. Knows no network.
#pragma once

#include <string_view>

#include "market/alert_list.h"
#include "market/live_sources.h"
#include "market/market_data.h"
#include "market/market_reply.h"

namespace brantlow {

// `target` is path and query as they came over the wire; any bytes are taken. Nothing later than `today` is
// told. The same target, data and day give the same reply, but for the list of alerts. An alert request is
// added to `alerts`.
// `headers` are those by which a live source knows who asks.
MarketReply Answer(std::string_view target, const MarketData& data, const Date& today, AlertList& alerts,
                   const MarketHeaders& headers = {});

}  // namespace brantlow
