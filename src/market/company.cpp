#include "market/company.h"

#include <array>
#include <cmath>

#include "base/numbers.h"
#include "market/practice_dice.h"

namespace brantlow {

namespace {

constexpr std::string_view kIndexExchange = "Index";

// The first day of the quarter that `today` lies in: what is reported once a quarter changes on it.
Date QuarterBegin(const Date& today) {
    constexpr unsigned kMonths = 3;
    const unsigned month = (static_cast<unsigned>(today.month()) - 1) / kMonths * kMonths + 1;
    return {today.year(), std::chrono::month{month}, std::chrono::day{1}};
}

// The last price before the quarter, on the scale of the newest one.
double ReportedPrice(const TradedDays& days, const Date& today) {
    const std::size_t first = days.FirstFrom(QuarterBegin(today));
    const std::size_t index = first > 0 ? first - 1 : 0;
    return days.At(index).close * days.SplitFactorAt(index);
}

double Cents(double amount) {
    constexpr int kDecimals = 2;
    return RoundDecimals(amount, kDecimals);
}

// The ex-dividend date at hand: each ticker has a weekday of its own every 13 weeks, and the newest that is
// not more than a month gone counts.
Date ExDividendDate(const std::string& ticker, const Date& today) {
    constexpr int kCycle = 13 * 7;
    constexpr int kDaysShown = 30;
    constexpr int kWorkdays = 5;
    const Date monday{std::chrono::year{2001}, std::chrono::January, std::chrono::day{1}};
    const auto draw = [&](std::string_view word, int count) {
        return static_cast<int>(Between(ticker, word, 0, count));
    };
    const int offset = draw("ex week", kCycle / 7) * 7 + draw("ex day", kWorkdays);
    const std::chrono::sys_days first = std::chrono::sys_days{AddDays(monday, offset)};
    const auto gone = (std::chrono::sys_days{AddDays(today, -kDaysShown)} - first).count();
    const auto cycles = static_cast<int>((gone + kCycle - 1) / kCycle);
    return AddDays(Date{first}, cycles * kCycle);
}

void TakeDividend(Company& company, double reported, const Date& today) {
    constexpr double kShareOfPayers = 0.6;
    constexpr int kDaysToPayment = 21;
    if (ShareOf(company.ticker, "pays") >= kShareOfPayers) return;
    company.dividend = Cents(reported * Between(company.ticker, "yield", 0.008, 0.04));
    if (company.dividend <= 0) return;
    company.exDate = ExDividendDate(company.ticker, today);
    company.payDate = AddDays(*company.exDate, kDaysToPayment);
}

}  // namespace

std::optional<Company> CompanyOf(const MarketTicker& ticker, const Date& today) {
    const TradedDays days(ticker, today);
    if (days.Count() == 0 || ticker.about.exchange == kIndexExchange) return std::nullopt;
    Company company;
    company.ticker = ticker.about.ticker;
    company.tickerAndDay = company.ticker + ' ' + FormatIsoDate(today);
    company.price = days.At(days.Count() - 1).close;
    const double reported = ReportedPrice(days, today);
    const auto draw = [&](std::string_view word, double low, double high) {
        return Between(company.ticker, word, low, high);
    };
    constexpr double kFewestShares = 2e8;
    constexpr double kMostShares = 5e9;
    company.shares = std::round(draw("shares", kFewestShares, kMostShares));
    company.earningsPerShare = Cents(reported / draw("price to earnings", 9, 32));
    company.growth = draw("growth", 4, 24);
    company.earningsEstimate = Cents(company.earningsPerShare * (1 + company.growth / 100));
    company.salesPerShare = Cents(reported / draw("price to sales", 0.8, 6));
    company.bookPerShare = Cents(reported / draw("price to book", 1.2, 7));
    company.cashPerShare = Cents(reported * draw("cash", 0.02, 0.2));
    company.debtPerShare = Cents(reported * draw("debt", 0.05, 0.4));
    company.pegRatio = Cents(draw("peg", 0.6, 2.9));
    TakeDividend(company, reported, today);
    return company;
}

}  // namespace brantlow
