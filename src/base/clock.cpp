#include "base/clock.h"

#include <ctime>

namespace brantlow {

namespace {

std::tm LocalTime(const std::timespec& now) {
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    return local;
}

std::timespec Now() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    return now;
}

}  // namespace

Date SystemClock::Today() const {
    const std::tm local = LocalTime(Now());
    return Date{std::chrono::year{local.tm_year + 1900},
                std::chrono::month{static_cast<unsigned>(local.tm_mon + 1)},
                std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
}

double SystemClock::SecondsSinceMidnight() const {
    const std::timespec now = Now();
    const std::tm local = LocalTime(now);
    constexpr double kNanosecond = 1e-9;
    return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec +
           static_cast<double>(now.tv_nsec) * kNanosecond;
}

}  // namespace brantlow
