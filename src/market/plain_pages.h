// The pages that are there to be looked at, and the split calendar, whose layout its reader is bound to.
#pragma once

#include <string>

#include "market/alert_list.h"
#include "market/market_data.h"
#include "market/market_request.h"

namespace brantlow {

// The version that the vendor offers: the running one, so that nothing is newer.
std::string UpdatePage();

// The splits of these days: that of the practice prices, and a few of tickers that nobody holds.
std::string SplitCalendarPage(const MarketData& data, const Date& today);

std::string AlertPage(const AlertList& alerts);

// What is shown for an address that has no reply of its own: the path, its ticker and the ticker's quote, or
// the quotes of all tickers for an address without one.
std::string ResearchPage(const MarketRequest& request, const MarketData& data, const Date& today);

// The ticker that a research address names, in the query or as the page's name; empty when none.
std::string TickerOfAddress(const MarketRequest& request);

}  // namespace brantlow
