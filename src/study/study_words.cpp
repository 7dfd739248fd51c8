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

}  // namespace brantlow
