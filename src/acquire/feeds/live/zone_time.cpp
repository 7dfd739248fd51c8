#include "acquire/feeds/live/zone_time.h"

#include <array>
#include <ctime>

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::last;
using std::chrono::Monday;
using std::chrono::month;
using std::chrono::Sunday;
using std::chrono::sys_days;
using std::chrono::Thursday;
using std::chrono::weekday;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr EpochSeconds kSecondsPerMinute = 60;
constexpr EpochSeconds kSecondsPerDay = 86'400;
constexpr int kMinutesPerHour = 60;

constexpr std::array<ZoneRule, 36> kZones = {{
    {"America/New_York", -300, SummerTime::UnitedStates},
    {"America/Toronto", -300, SummerTime::UnitedStates},
    {"America/Chicago", -360, SummerTime::UnitedStates},
    {"America/Mexico_City", -360, SummerTime::None},
    {"America/Sao_Paulo", -180, SummerTime::None},
    {"America/Argentina/Buenos_Aires", -180, SummerTime::None},
    {"America/Buenos_Aires", -180, SummerTime::None},
    {"America/Los_Angeles", -480, SummerTime::UnitedStates},
    {"America/Vancouver", -480, SummerTime::UnitedStates},
    {"Europe/London", 0, SummerTime::Europe},
    {"Europe/Dublin", 0, SummerTime::Europe},
    {"Europe/Lisbon", 0, SummerTime::Europe},
    {"Europe/Paris", 60, SummerTime::Europe},
    {"Europe/Berlin", 60, SummerTime::Europe},
    {"Europe/Amsterdam", 60, SummerTime::Europe},
    {"Europe/Brussels", 60, SummerTime::Europe},
    {"Europe/Madrid", 60, SummerTime::Europe},
    {"Europe/Rome", 60, SummerTime::Europe},
    {"Europe/Zurich", 60, SummerTime::Europe},
    {"Europe/Vienna", 60, SummerTime::Europe},
    {"Europe/Oslo", 60, SummerTime::Europe},
    {"Europe/Stockholm", 60, SummerTime::Europe},
    {"Europe/Copenhagen", 60, SummerTime::Europe},
    {"Europe/Helsinki", 120, SummerTime::Europe},
    {"Europe/Warsaw", 60, SummerTime::Europe},
    {"Asia/Kolkata", 330, SummerTime::None},
    {"Asia/Calcutta", 330, SummerTime::None},
    {"Asia/Tokyo", 540, SummerTime::None},
    {"Asia/Seoul", 540, SummerTime::None},
    {"Asia/Hong_Kong", 480, SummerTime::None},
    {"Asia/Shanghai", 480, SummerTime::None},
    {"Asia/Taipei", 480, SummerTime::None},
    {"Asia/Singapore", 480, SummerTime::None},
    {"Australia/Sydney", 600, SummerTime::Australia},
    {"Africa/Johannesburg", 120, SummerTime::None},
    {"UTC", 0, SummerTime::None},
}};

sys_days NthWeekday(year y, month m, weekday w, unsigned n) {
    return sys_days{y / m / w[n]};
}

sys_days LastWeekday(year y, month m, weekday w) {
    return sys_days{y / m / w[last]};
}

// The first summer day and the first day after it: the clock is put forward and back in their small hours.
struct SummerSpan {
    sys_days first;
    sys_days end;
};

SummerSpan UnitedStatesSummer(year y) {
    constexpr year kLater{2007};
    if (y >= kLater) {
        return {NthWeekday(y, std::chrono::March, Sunday, 2),
                NthWeekday(y, std::chrono::November, Sunday, 1)};
    }
    return {NthWeekday(y, std::chrono::April, Sunday, 1), LastWeekday(y, std::chrono::October, Sunday)};
}

// `local` is a moment in standard time, in seconds.
bool IsSummer(SummerTime summer, EpochSeconds local, int standardMinutes) {
    if (summer == SummerTime::None) return false;
    const year y = year_month_day{
        std::chrono::floor<days>(std::chrono::sys_seconds{std::chrono::seconds{
            local}})}.year();
    const auto at = [](sys_days day, int minutes) {
        return day.time_since_epoch().count() * kSecondsPerDay + minutes * kSecondsPerMinute;
    };
    constexpr int kOne = kMinutesPerHour;
    constexpr int kTwo = 2 * kMinutesPerHour;
    if (summer == SummerTime::UnitedStates) {
        const SummerSpan span = UnitedStatesSummer(y);
        return local >= at(span.first, kTwo) && local < at(span.end, kOne);
    }
    if (summer == SummerTime::Europe) {
        const int change = kOne + standardMinutes;
        return local >= at(LastWeekday(y, std::chrono::March, Sunday), change) &&
               local < at(LastWeekday(y, std::chrono::October, Sunday), change);
    }
    return local >= at(NthWeekday(y, std::chrono::October, Sunday, 1), kTwo) ||
           local < at(NthWeekday(y, std::chrono::April, Sunday, 1), kTwo);
}

EpochSeconds OffsetAt(const ZoneRule& zone, EpochSeconds at) {
    const EpochSeconds standard = zone.standardMinutes * kSecondsPerMinute;
    const bool summer = IsSummer(zone.summer, at + standard, zone.standardMinutes);
    return standard + (summer ? kMinutesPerHour * kSecondsPerMinute : 0);
}

// Independence Day's and Christmas's eve, and the day after Thanksgiving.
bool IsShortDay(sys_days day) {
    const year_month_day date{day};
    const bool isHalf = date.month() == std::chrono::July
                            ? date.day() == std::chrono::day{3}
                            : date.month() == std::chrono::December && date.day() == std::chrono::day{24};
    // The holiday of a Saturday is kept on the Friday before.
    if (isHalf) return weekday{day} != std::chrono::Friday;
    return day == NthWeekday(date.year(), std::chrono::November, Thursday, 4) + days{1};
}

// Exchanges outside the United States end by this time at the latest.
constexpr int kOtherClose = 18 * kMinutesPerHour;

int CloseOf(const ZoneRule& zone, sys_days day) {
    return &zone == &NewYorkZone() ? UnitedStatesClose(day) : kOtherClose;
}

}  // namespace

const ZoneRule* FindZone(std::string_view name) {
    for (const ZoneRule& zone : kZones) {
        if (zone.name == name) return &zone;
    }
    return nullptr;
}

const ZoneRule& NewYorkZone() {
    return kZones.front();
}

ZoneMoment MomentAt(EpochSeconds at, int offsetSeconds) {
    const std::chrono::sys_seconds local{std::chrono::seconds{at + offsetSeconds}};
    const sys_days day = std::chrono::floor<days>(local);
    const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(local - day);
    return {day, static_cast<int>(minutes.count())};
}

ZoneMoment MomentIn(const ZoneRule& zone, EpochSeconds at) {
    return MomentAt(at, static_cast<int>(OffsetAt(zone, at)));
}

EpochSeconds EpochOf(const ZoneRule& zone, sys_days day, int minutes) {
    const EpochSeconds local = day.time_since_epoch().count() * kSecondsPerDay + minutes * kSecondsPerMinute;
    const EpochSeconds standard = local - zone.standardMinutes * kSecondsPerMinute;
    return local - OffsetAt(zone, standard - kMinutesPerHour * kSecondsPerMinute);
}

EpochSeconds EpochOf(const Clock& clock) {
    const Date today = clock.Today();
    constexpr int kTmYear = 1900;
    std::tm local{};
    local.tm_year = static_cast<int>(today.year()) - kTmYear;
    local.tm_mon = static_cast<int>(static_cast<unsigned>(today.month())) - 1;
    local.tm_mday = static_cast<int>(static_cast<unsigned>(today.day()));
    local.tm_sec = static_cast<int>(clock.SecondsSinceMidnight());
    local.tm_isdst = -1;
    return std::mktime(&local);
}

int UnitedStatesClose(sys_days day) {
    constexpr int kClose = 16 * kMinutesPerHour;
    constexpr int kShortClose = 13 * kMinutesPerHour;
    return IsShortDay(day) ? kShortClose : kClose;
}

bool IsWeekend(sys_days day) {
    const weekday w{day};
    return w == std::chrono::Saturday || w == Sunday;
}

sys_days WeekdayBefore(sys_days day) {
    do day -= days{1};
    while (IsWeekend(day));
    return day;
}

bool IsOver(const ZoneRule& zone, sys_days day, EpochSeconds now) {
    const ZoneMoment moment = MomentIn(zone, now);
    if (moment.day != day) return moment.day > day;
    return moment.minutes >= CloseOf(zone, day);
}

sys_days NewestEndedDay(const ZoneRule& zone, EpochSeconds now) {
    const sys_days day = MomentIn(zone, now).day;
    return !IsWeekend(day) && IsOver(zone, day, now) ? day : WeekdayBefore(day);
}

}  // namespace brantlow
