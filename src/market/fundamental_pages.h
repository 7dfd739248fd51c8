// The three fundamental pages of a ticker: key statistics, analyst opinion, analyst estimates. Their readers
// find each figure by its label at the begin of a line of the page's text, so labels and line order count.
#pragma once

#include <string>
#include <string_view>

#include "market/market_data.h"

namespace brantlow {

// Each takes a ticker in capitals; an unknown one and an index give the same page with N/A in all places.
std::string KeyStatisticsPage(std::string_view ticker, const MarketData& data, const Date& today);
std::string AnalystOpinionPage(std::string_view ticker, const MarketData& data, const Date& today);
std::string AnalystEstimatesPage(std::string_view ticker, const MarketData& data, const Date& today);

}  // namespace brantlow
