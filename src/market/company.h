// What a company is like, drawn from its ticker, and how it stands on a day: the figures beside the prices.
// The quotes of the day and the fundamental pages tell the same figures.
#pragma once

#include <optional>
#include <string>

#include "market/market_data.h"

namespace brantlow {

// The figures of a day. Money is in dollars, a share of a whole is in per cent.
struct Company {
    double price = 0;  // last
    double shares = 0;
    double earningsPerShare = 0;
    double earningsEstimate = 0;  // of the next twelve months, a share
    double salesPerShare = 0;
    double bookPerShare = 0;
    double cashPerShare = 0;
    double debtPerShare = 0;
    double dividend = 0;  // a year, a share; 0 for none
    double growth = 0;    // of earnings over the next five years
    double pegRatio = 0;
    std::optional<Date> exDate;   // only with a dividend
    std::optional<Date> payDate;  // only with a dividend
    // Draws the rest: what stays for good from the ticker, what changes by the day from ticker and day.
    std::string ticker;
    std::string tickerAndDay;
};

// Nothing for an index, which is no company, and for a ticker without a day up to `today`.
std::optional<Company> CompanyOf(const MarketTicker& ticker, const Date& today);

inline double MarketValue(const Company& company) {
    return company.price * company.shares;
}
inline double SalesOf(const Company& company) {
    return company.salesPerShare * company.shares;
}
inline double EarningsOf(const Company& company) {
    return company.earningsPerShare * company.shares;
}

}  // namespace brantlow
