// An equity curve: the signals of one condition bought with equal amounts, a few shares at a time, beside
// holding all tickers equally. Made of a study's walk; the batch tool prints it, the study window draws it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "study/study.h"

namespace brantlow {

struct PortfolioTerms {
    std::size_t buy = 1;    // the condition whose signals are bought
    std::size_t sell = 0;   // the condition whose signals end a holding sooner; 0 for none
    std::size_t hold = 20;  // bars
    std::size_t most = 10;  // holdings at a time, at least 1
    double cost = 0.5;      // percent, of each purchase and each sale
};

// Bought at the close of the bar after a signal of the one condition, sold `hold` bars later or at the close
// of the bar after a signal of the other.
struct PortfolioTrade {
    std::uint32_t ticker = 0;  // place in ConditionStudy::tickers
    std::uint32_t entry = 0;   // places in ConditionStudy::dates
    std::uint32_t exit = 0;
    double entryClose = 0;
    double exitClose = 0;
    double result = 0;  // as a share of what was paid, costs taken off
};

struct Portfolio {
    // From the first evaluated date on; what 1 has become by each of them.
    std::vector<std::uint32_t> dates;
    std::vector<double> equity;
    std::vector<double> benchmark;
    std::vector<PortfolioTrade> trades;  // that have ended, in the order of their ends
    std::size_t held = 0;                // holdings that the last day still has
    // Shares of 1; nothing where there are fewer than two dates.
    std::optional<double> yearly, benchmarkYearly;
    double worstFall = 0;
    double benchmarkWorstFall = 0;
    double inMarket = 0;  // mean share of the money that was in holdings
};

// Signals of a day are chosen by ticker; each takes an equal part of what all is worth, or the money that is
// left. A share without a close above 0 is neither bought nor sold that day. The benchmark divides its money
// among the tickers that have such a close on the first date.
Portfolio PortfolioOf(const ConditionStudy& study, const PortfolioTerms& terms);

}  // namespace brantlow
