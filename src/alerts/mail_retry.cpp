#include "alerts/mail_retry.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

namespace brantlow {

namespace {

constexpr double kMinute = 60;
constexpr double kDay = 86'400;
// Minutes before each further try: a greylisting server wants a few, one that is being mended some hours.
constexpr std::array<double, 8> kWaits = {1, 5, 15, 30, 60, 120, 240, 480};

double MomentOf(const Clock& clock) {
    return static_cast<double>(std::chrono::sys_days{clock.Today()}.time_since_epoch().count()) * kDay +
           clock.SecondsSinceMidnight();
}

}  // namespace

void MailRetry::Begin(const Clock& clock) {
    waits_ = 0;
    WaitFrom(clock);
}

void MailRetry::PutOff(const Clock& clock) {
    ++waits_;
    WaitFrom(clock);
}

void MailRetry::WaitFrom(const Clock& clock) {
    next_.reset();
    if (waits_ < kWaits.size()) next_ = MomentOf(clock) + kWaits[waits_] * kMinute;
}

bool MailRetry::IsDue(const Clock& clock) const {
    return next_ && MomentOf(clock) >= *next_;
}

std::string MailRetry::NextText() const {
    if (!next_) return {};
    constexpr int kMinutesInHour = 60;
    const int minutes = static_cast<int>(std::fmod(*next_, kDay) / kMinute);
    return fmt::format("{:02}:{:02}", minutes / kMinutesInHour, minutes % kMinutesInHour);
}

}  // namespace brantlow
