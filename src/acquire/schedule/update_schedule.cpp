#include "acquire/schedule/update_schedule.h"

#include <chrono>
#include <utility>

#include "base/numbers.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

constexpr int kMinutes = 60;
constexpr double kSecondsPerMinute = 60;
constexpr double kSecondsPerDay = 86400;

}  // namespace

Moment MomentOf(const Clock& clock) {
    return {clock.Today(), clock.SecondsSinceMidnight()};
}

double SecondsBetween(const Moment& from, const Moment& to) {
    const auto days = std::chrono::sys_days(to.day) - std::chrono::sys_days(from.day);
    return static_cast<double>(days.count()) * kSecondsPerDay + to.seconds - from.seconds;
}

bool WaitsForDailyRun(const SettingsTables& settings) {
    return Known(settings, kCollection) != DataCollection::Never;
}

std::optional<int> DailyRunMinute(const SettingsTables& settings) {
    if (Get(settings, kCollection) != DataCollection::Daily) return std::nullopt;
    const auto hour = Get(settings, kCollectionHour);
    const auto minute = Get(settings, kCollectionMinute);
    if (!hour || !minute) return std::nullopt;
    return *hour * kMinutes + *minute;
}

bool DailyRun::Poll(const SettingsTables& settings, const Clock& clock) {
    if (!WaitsForDailyRun(settings)) {
        PollStart_.reset();
        lastLook_.reset();
        return false;
    }
    const Moment now = MomentOf(clock);
    if (!PollStart_) {
        PollStart_ = now;
        lastLook_ = now;
        lastChosen_ = DailyRunMinute(settings);
    }
    const double elapsed = SecondsBetween(*PollStart_, now);
    if (elapsed >= 0 && elapsed < kPollSeconds && !isAskedFor_) return false;
    PollStart_ = now;
    return CheckDailyRun(settings, clock);
}

bool DailyRun::CheckDailyRun(const SettingsTables& settings, const Clock& clock) {
    const Moment now = MomentOf(clock);
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
    const bool isAskedFor = std::exchange(isAskedFor_, false) && last.day == now.day;
    if (!(isNow || wasMissed || isAskedFor) || lastRun_ == last) return false;
    lastRun_ = last;
    return true;
}

DailyRun::Today DailyRun::AskForToday(const SettingsTables& settings, const Clock& clock) {
    const std::optional<int> chosen = DailyRunMinute(settings);
    if (!chosen) return Today::NotChosen;
    if (lastRun_ == Minute{clock.Today(), *chosen}) return Today::Over;
    isAskedFor_ = IsDue(settings, clock);
    return Today::Comes;
}

bool DailyRun::IsDue(const SettingsTables& settings, const Clock& clock) const {
    const std::optional<int> chosen = DailyRunMinute(settings);
    return chosen && clock.SecondsSinceMidnight() >= *chosen * kSecondsPerMinute &&
           lastRun_ != Minute{clock.Today(), *chosen};
}

bool TurnOnDailyRun(std::string_view hour, std::string_view minute, SettingsTables& settings) {
    const bool runs = Get(settings, kCollection) == DataCollection::Daily;
    if (runs || hour.empty() || minute.empty()) return false;
    Set(settings, kCollectionHour, hour);
    Set(settings, kCollectionMinute, minute);
    return true;
}

void SetDailyRun(int minute, SettingsTables& settings) {
    // Hour and minute with two digits each, as the lists of the settings screens hold them.
    const std::string time = FormatTime(minute);
    Set(settings, kCollection, DataCollection::Daily);
    Set(settings, kCollectionHour, time.substr(0, 2));
    Set(settings, kCollectionMinute, time.substr(3));
}

}  // namespace brantlow
