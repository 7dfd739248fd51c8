// The quote of the day of one ticker, and the reply that tells those of many: one line a ticker, in the
// fields that the request's codes name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "market/market_data.h"
#include "market/market_request.h"

namespace brantlow {

// What is told of whatever is missing.
inline constexpr std::string_view kMissing = "N/A";

// An unknown ticker has nothing but its name.
struct QuoteOfDay {
    std::string ticker;
    std::optional<std::string> name;
    std::optional<std::string> exchange;
    std::optional<std::string> time;
    std::optional<Date> day;
    std::optional<Date> exDate;
    std::optional<Date> payDate;
    std::optional<double> last;
    std::optional<double> change;
    std::optional<double> ask;
    std::optional<double> bid;
    std::optional<double> open;
    std::optional<double> high;
    std::optional<double> low;
    std::optional<double> volume;
    std::optional<double> previousClose;
    std::optional<double> low52;
    std::optional<double> high52;
    std::optional<double> dividend;
    std::optional<double> earningsPerShare;
    std::optional<double> earningsEstimate;
    std::optional<double> priceToEarnings;
    std::optional<double> pegRatio;
    std::optional<double> priceToSales;
    std::optional<double> marketValue;  // dollars
};

// The quote on `today`: its bar, or the newest one before it on a day without trading. `ticker` as asked for.
QuoteOfDay MakeQuote(std::string_view ticker, const MarketData& data, const Date& today);

// The reply to `s=TICKER,TICKER,...&f=codes`; without codes all fields of the daily update. Empty tickers at
// the end have no line, those between have one of N/A, so that each line keeps its place. An unknown code is
// N/A. For a market with decimal commas the fields stand between semicolons.
std::string QuotesReply(const MarketRequest& request, const MarketData& data, const Date& today);

// 1.2 thousand, million or billion as "1.20K", "1.20M", "1.20B".
std::string ScaledNumber(double value);

}  // namespace brantlow
