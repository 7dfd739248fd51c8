#include "study/study_words.h"

#include <fmt/format.h>

#include <cmath>

namespace brantlow {

namespace {

constexpr double kHundred = 100;
constexpr double kTwoErrors = 2;

long OfHundred(double share) {
    return std::lround(share * kHundred);
}

}  // namespace

std::string PercentText(const std::optional<double>& share, bool sign) {
    if (!share) return {};
    const double percent = *share * kHundred;
    return sign ? fmt::format("{:+.2f} %", percent) : fmt::format("{:.2f} %", percent);
}

std::string AfterText(std::size_t horizon, Interval interval) {
    const std::string_view unit = interval == Interval::Weekly ? "week" : "day";
    return fmt::format("after {} {}{}", horizon, unit, horizon == 1 ? "" : "s");
}

bool StandsOut(const HorizonFigures& figures) {
    return figures.t && std::fabs(*figures.t) >= kTwoErrors;
}

std::string HorizonSentence(const HorizonFigures& figures, const Mean& baseline, std::size_t horizon,
                            Interval interval) {
    std::string after = AfterText(horizon, interval);
    after.front() = 'A';
    if (figures.n == 0 || !figures.hit) return after + " nothing can be said yet: no signal is so old.";
    const std::string_view chance =
        StandsOut(figures) ? "the mean stands out from that of any day" : "the difference may be chance";
    return fmt::format("{} {} of 100 were higher; any day: {} of 100; {}.", after, OfHundred(*figures.hit),
                       OfHundred(baseline.hit), chance);
}

std::string PortfolioWords(const ConditionStudy& study, const PortfolioTerms& terms,
                           const Portfolio& portfolio) {
    const auto named = [&](std::size_t condition) {
        return fmt::format("condition {} ({})", condition, study.actions[condition - 1]);
    };
    const std::string_view unit = study.span.interval == Interval::Weekly ? "weeks" : "days";
    std::string words = fmt::format(
        "Bought at the signals of {}, at most {} shares at a time in equal parts, held for {} {}{}; cost {} "
        "% "
        "each time.\n",
        named(terms.buy), terms.most, terms.hold, unit,
        terms.sell == 0 ? std::string() : " or until a signal of " + named(terms.sell), terms.cost);
    words += fmt::format("{} trades have ended, {} shares are still held. ", portfolio.trades.size(),
                         portfolio.held);
    if (portfolio.yearly)
        words += fmt::format("Return a year {}; all tickers held {}. ", PercentText(portfolio.yearly, true),
                             PercentText(portfolio.benchmarkYearly, true));
    return words + fmt::format("Worst fall {}; all tickers held {}. {} of the money was in shares.",
                               PercentText(portfolio.worstFall), PercentText(portfolio.benchmarkWorstFall),
                               PercentText(portfolio.inMarket));
}

}  // namespace brantlow
