#include "acquire/schedule/update_schedule.h"

#include <chrono>
#include <utility>

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr std::size_t kCollectionLine = 9;
constexpr std::size_t kHourLine = 10;
constexpr std::size_t kMinuteLine = 11;
constexpr std::string_view kCollectDaily = "EOD";
constexpr std::string_view kCollectNever = "None";
constexpr int kHours = 24;
constexpr int kMinutes = 60;
constexpr double kSecondsPerMinute = 60;
constexpr double kSecondsPerDay = 86400;

// The whole number below `limit` that a line holds, or nothing.
std::optional<int> Figure(const std::string& text, int limit) {
    const std::optional<double> number = WholeNumber(text);
    if (!number || *number < 0 || *number >= limit) return std::nullopt;
    const int whole = static_cast<int>(*number);
    if (whole != *number) return std::nullopt;
    return whole;
}

}  // namespace

bool WaitsForDailyRun(const SettingsTables& settings) {
    return settings.DataSettings.Text(kCollectionLine) != kCollectNever;
}

std::optional<int> DailyRunMinute(const SettingsTables& settings) {
    const SettingsTable& DataSettings = settings.DataSettings;
    if (DataSettings.Text(kCollectionLine) != kCollectDaily) return std::nullopt;
    const auto hour = Figure(DataSettings.Text(kHourLine), kHours);
    const auto minute = Figure(DataSettings.Text(kMinuteLine), kMinutes);
    if (!hour || !minute) return std::nullopt;
    return *hour * kMinutes + *minute;
}

bool DailyRun::Poll(const SettingsTables& settings, const Clock& clock) {
    if (!WaitsForDailyRun(settings)) {
        PollStart_.reset();
        lastLook_.reset();
        return false;
    }
    const Moment now{clock.Today(), clock.SecondsSinceMidnight()};
    if (!PollStart_) {
        PollStart_ = now;
        lastLook_ = now;
        lastChosen_ = DailyRunMinute(settings);
    }
    const auto days = std::chrono::sys_days(now.day) - std::chrono::sys_days(PollStart_->day);
    const double elapsed =
        static_cast<double>(days.count()) * kSecondsPerDay + now.seconds - PollStart_->seconds;
    if (elapsed >= 0 && elapsed < kPollSeconds) return false;
    PollStart_ = now;
    return CheckDailyRun(settings, clock);
}

bool DailyRun::CheckDailyRun(const SettingsTables& settings, const Clock& clock) {
    const Moment now{clock.Today(), clock.SecondsSinceMidnight()};
    const std::optional<int> chosen = DailyRunMinute(settings);
    const std::optional<Moment> before = std::exchange(lastLook_, now);
    const bool isSameChoice = std::exchange(lastChosen_, chosen) == chosen;
    if (!chosen) return false;
    // The minute that came last.
    const int minute = static_cast<int>(now.seconds / kSecondsPerMinute);
    const Minute last{minute < *chosen ? AddDays(now.day, -1) : now.day, *chosen};
    const Moment begin{last.day, *chosen * kSecondsPerMinute};
    const bool isNow = last.day == now.day && minute == *chosen;
    const bool wasMissed = before && isSameChoice && *before < begin;
    if (!(isNow || wasMissed) || lastRun_ == last) return false;
    lastRun_ = last;
    return true;
}

bool TurnOnDailyRun(std::string_view hour, std::string_view minute, SettingsTables& settings) {
    SettingsTable& DataSettings = settings.DataSettings;
    if (DataSettings.Text(kCollectionLine) == kCollectDaily || hour.empty() || minute.empty()) return false;
    DataSettings.Set(kHourLine, Value::OfText(hour));
    DataSettings.Set(kMinuteLine, Value::OfText(minute));
    return true;
}

void SetDailyRun(int minute, SettingsTables& settings) {
    // Hour and minute with two digits each, as the lists of the settings screens hold them.
    const std::string time = FormatTime(minute);
    settings.DataSettings.Set(kCollectionLine, Value::OfText(kCollectDaily));
    settings.DataSettings.Set(kHourLine, Value::OfText(time.substr(0, 2)));
    settings.DataSettings.Set(kMinuteLine, Value::OfText(time.substr(3)));
}

}  // namespace brantlow
