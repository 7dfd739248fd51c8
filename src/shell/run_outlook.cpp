#include "shell/run_outlook.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "shell/run_report.h"

namespace brantlow {

namespace {

constexpr double kFewSeconds = 3;
constexpr double kTooLittle = 0.02;
constexpr double kMinute = 60;
constexpr double kHour = 3600;
constexpr double kPercent = 100;
constexpr double kMillisecondsASecond = 1000;
constexpr std::string_view kLeft = " left";

std::string TimeLeft(double seconds) {
    if (seconds < kMinute) return "less than a minute left";
    if (seconds < 2 * kHour) {
        const auto minutes = static_cast<std::size_t>(std::lround(seconds / kMinute));
        return fmt::format("about {} left", Counted(minutes, "minute", "minutes"));
    }
    return fmt::format("about {} hours left", std::lround(seconds / kHour));
}

}  // namespace

void RunClock::Begin(long long now) {
    begun_ = now;
    stoodStill_.reset();
}

void RunClock::StandStill(long long now) {
    if (!stoodStill_) stoodStill_ = now;
}

// The run has begun so much later.
void RunClock::GoOn(long long now) {
    if (stoodStill_) begun_ += now - *stoodStill_;
    stoodStill_.reset();
}

double RunClock::Seconds(long long now) const {
    return static_cast<double>(stoodStill_.value_or(now) - begun_) / kMillisecondsASecond;
}

std::string RunOutlook(const RunSight& sight) {
    std::string line = sight.what.empty() ? "Working" : sight.what;
    // Some tell the time that is left in the status bar, which stands behind here anyway.
    if (line.ends_with(kLeft)) line = "Working";
    // Some runs count the rows in the status bar.
    if (line.find_first_not_of("0123456789") == std::string::npos) line = "Row " + line + ",";
    if (!sight.ticker.empty()) line += " " + sight.ticker;
    const double done = std::clamp(sight.fraction, 0.0, 1.0);
    if (done <= 0) return line;
    line += fmt::format(": {} % done", std::lround(std::floor(done * kPercent)));
    if (done < kTooLittle || done >= 1 || sight.seconds < kFewSeconds) return line;
    return line + ", " + TimeLeft(sight.seconds * (1 - done) / done);
}

std::string PausingSentence(const std::string& ticker) {
    return ticker.empty() ? "Pausing" : "Pausing after " + ticker;
}

std::string EndingSentence(const std::string& ticker) {
    return ticker.empty() ? "Ending" : "Ending after " + ticker;
}

}  // namespace brantlow
