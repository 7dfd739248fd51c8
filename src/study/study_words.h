// The figures of a study in words that need no statistics, and the warnings that belong to them. The study
// window and its report show them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "study/portfolio.h"
#include "study/study_figures.h"

namespace brantlow {

// Beside the tickers, beside the ten conditions, and beside the error.
inline constexpr std::array<std::string_view, 3> kStudyWarnings = {
    "The tickers are those of today's table: shares that vanished in the meantime are missing, and they were "
    "seldom good ones.",
    "Ten conditions were tried: the best of ten that are worth nothing may well look good by chance.",
    "Signals of neighbouring days share most of the days that follow, so they count for less than their "
    "number.",
};

// "2.35 %", with a sign where asked; "" for nothing.
std::string PercentText(const std::optional<double>& share, bool sign = false);
// "20 days", "1 week".
std::string BarsText(std::size_t bars, Interval interval);
// "after 20 days", "after 1 week".
std::string AfterText(std::size_t horizon, Interval interval);
// "16 days of 3 tickers were judged."
std::string JudgedWords(const ConditionStudy& study);
// Whether the excess stands out: beyond two errors.
bool StandsOut(const HorizonFigures& figures);
// "After 20 days 58 of 100 were higher; any day: 54 of 100; the difference may be chance."
std::string HorizonSentence(const HorizonFigures& figures, const Mean& baseline, std::size_t horizon,
                            Interval interval);

// What was bought and sold, and what became of it beside holding all tickers.
std::string PortfolioWords(const ConditionStudy& study, const PortfolioTerms& terms,
                           const Portfolio& portfolio);

}  // namespace brantlow
