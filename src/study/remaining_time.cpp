#include "study/remaining_time.h"

#include <fmt/format.h>

#include <cmath>

namespace brantlow {

namespace {

constexpr double kSecondsADay = 86400;
constexpr double kFirstSeconds = 2;
constexpr double kMinute = 60;
// Seconds are told in steps, so that the words stand still long enough to be read.
constexpr double kStep = 5;

}  // namespace

// Midnight may have passed.
double RemainingTime::Since(double seconds) const {
    const double now = clock_.SecondsSinceMidnight();
    return now >= seconds ? now - seconds : now - seconds + kSecondsADay;
}

void RemainingTime::EndPause() {
    pauses_ += Since(paused_);
}

std::string RemainingTime::Words(double share) const {
    const double worked = Since(begun_) - pauses_;
    if (worked < kFirstSeconds || !(share > 0) || share >= 1) return {};
    const double left = worked * (1 - share) / share;
    if (left > kMinute) return fmt::format("{:.0f} min left", std::ceil(left / kMinute));
    return fmt::format("{:.0f} s left", std::ceil(left / kStep) * kStep);
}

}  // namespace brantlow
