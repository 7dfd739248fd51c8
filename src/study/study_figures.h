// The figures of a study: what followed the signals of each condition, against what any evaluated day would
// have earned. They are made of a walk's verdicts, so other horizons and costs need no second walk.
//
// Bought is at the close of the bar after the signal's, sold at the close so many bars later (the horizon). A
// trade whose bars do not exist yet, or have no close above 0, is open and counts in nothing else.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/study.h"

namespace brantlow {

struct StudyTerms {
    std::vector<std::size_t> horizons = {1, 5, 20, 60};
    double cost = 0.5;  // percent, of each purchase and each sale
    // Every day on which a condition holds is a signal, not only the first of a row.
    bool everyDay = false;
};

inline constexpr std::size_t kLongestHorizon = 1000;
// The horizons of "1,5,20"; nothing where one is no whole number from 1 to kLongestHorizon, stands twice or
// has a leading 0.
std::optional<std::vector<std::size_t>> ReadHorizons(std::string_view text);

struct Mean {
    std::size_t n = 0;
    double mean = 0;  // of use where n is not 0, as is the share of values above 0
    double hit = 0;
};

struct HorizonFigures {
    std::size_t n = 0;
    std::size_t open = 0;
    // Nothing where n is 0; t also where fewer than two dates count or the error is as good as 0.
    std::optional<double> mean, median, hit, excess, se, t;
    // Means of the signals before, and from, the middle one of the evaluated dates.
    std::optional<double> firstHalf, secondHalf;
};

struct ConditionFigures {
    std::size_t condition = 0;
    std::size_t holding = 0;  // pairs
    std::size_t signals = 0;
    std::size_t tickers = 0;
    std::size_t days = 0;
    std::vector<HorizonFigures> horizons;  // in the order of the terms
};

struct StudyFigures {
    std::vector<Mean> baseline;  // of all evaluated pairs, by horizon
    std::vector<ConditionFigures> conditions;
};

// What a trade after the signal at `bar` returns: 0.1 for a tenth. Nothing while it is open.
std::optional<double> ReturnAfter(const StudiedTicker& ticker, std::size_t bar, std::size_t horizon,
                                  double cost);
bool IsSignal(const StudiedTicker& ticker, std::size_t condition, std::size_t bar, bool everyDay);

StudyFigures FiguresOf(const ConditionStudy& study, const StudyTerms& terms);

// The mean way of a condition's trades from the purchase on: bars 0 to `bars` behind it.
struct PathPoint {
    HorizonFigures signals;
    Mean baseline;
};
std::vector<PathPoint> MeanPath(const ConditionStudy& study, std::size_t condition, const StudyTerms& terms,
                                std::size_t bars);

// One signal for a list of them.
struct StudySignal {
    std::uint32_t date = 0;  // place in ConditionStudy::dates
    std::uint32_t ticker = 0;
    std::uint32_t bar = 0;
    std::uint32_t condition = 0;
};
// Sorted by date, ticker and condition.
std::vector<StudySignal> SignalsOf(const ConditionStudy& study, bool everyDay);

// The signals as a file of comma-separated values: date, ticker, condition, action, entry, entry_close and
// one r_H a horizon, empty where open. Lines end with LF.
std::string SignalsCsv(const ConditionStudy& study, const StudyTerms& terms);

}  // namespace brantlow
