#include "study/study_words.h"

#include <fmt/format.h>

#include <cmath>

#include "shell/run_report.h"

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

std::string BarsText(std::size_t bars, Interval interval) {
    return interval == Interval::Weekly ? Counted(bars, "week", "weeks") : Counted(bars, "day", "days");
}

std::string AfterText(std::size_t horizon, Interval interval) {
    return "after " + BarsText(horizon, interval);
}

std::string JudgedWords(const ConditionStudy& study) {
    const std::size_t bars = study.Evaluated();
    return fmt::format("{} of {} {} judged.", BarsText(bars, study.span.interval),
                       CountedTickers(study.tickers.size()), bars == 1 ? "was" : "were");
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
    std::string words = fmt::format(
        "Bought at the signals of {}, at most {} at a time in equal parts, held for {}{}; cost {} % each "
        "time.\n",
        named(terms.buy), Counted(terms.most, "share", "shares"), BarsText(terms.hold, study.span.interval),
        terms.sell == 0 ? std::string() : " or until a signal of " + named(terms.sell), terms.cost);
    words +=
        fmt::format("{} ended, {} still held. ", Counted(portfolio.trades.size(), "trade has", "trades have"),
                    Counted(portfolio.held, "share is", "shares are"));
    if (portfolio.yearly)
        words += fmt::format("Return a year {}; all tickers held {}. ", PercentText(portfolio.yearly, true),
                             PercentText(portfolio.benchmarkYearly, true));
    return words + fmt::format("Worst fall {}; all tickers held {}. {} of the money was in shares.",
                               PercentText(portfolio.worstFall), PercentText(portfolio.benchmarkWorstFall),
                               PercentText(portfolio.inMarket));
}

}  // namespace brantlow
