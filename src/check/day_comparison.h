// Each ticker's days against those of the others: a day on which most have a record and one has none is a
// hole in that one's history.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/year_file_check.h"

namespace brantlow {

struct TickerDays {
    std::string ticker;
    std::vector<YearDays> years;  // oldest first
};

// Days that a ticker lacks one after another.
struct Hole {
    std::size_t ticker = 0;  // place in the tickers
    std::size_t days = 0;
    RecordDate next;  // the first day that is there again
};

// Compared are tickers of one market: those with the same ending behind their last point; a single letter
// there names a class of shares, and such a ticker stands with those without an ending. A day counts where at
// least four of them could have it and two thirds do. The last day of a year does not: a split adjustment
// leaves it out. A ticker that has days
// of its own where it lacks those of the others follows other holidays and is not compared.
std::vector<Hole> FindHoles(const std::vector<TickerDays>& tickers);

// The market's ending, empty for tickers without one.
std::string_view MarketOf(std::string_view ticker);

}  // namespace brantlow
