// Days and times at an exchange: the rules of its time zone, when its session ends, and which day is over.
// Rules stand here as a table, so that a day of twenty years ago gets the offset of that day and no file of
// the system is read.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/clock.h"
#include "base/dates.h"

namespace brantlow {

enum class SummerTime : std::uint8_t { None, UnitedStates, Europe, Australia };

struct ZoneRule {
    std::string_view name;  // "America/New_York"
    int standardMinutes;    // east of Greenwich
    SummerTime summer;
};

// Null for a zone that the table does not hold.
const ZoneRule* FindZone(std::string_view name);
const ZoneRule& NewYorkZone();

// A moment at an exchange.
struct ZoneMoment {
    std::chrono::sys_days day;
    int minutes = 0;  // since midnight
};

using EpochSeconds = std::int64_t;

ZoneMoment MomentIn(const ZoneRule& zone, EpochSeconds at);
// The same with a fixed offset in seconds.
ZoneMoment MomentAt(EpochSeconds at, int offsetSeconds);
// The moment of `minutes` since midnight of `day` at the zone.
EpochSeconds EpochOf(const ZoneRule& zone, std::chrono::sys_days day, int minutes);

// The clock's day and time, which are those of the time zone in force, as seconds since 1970.
EpochSeconds EpochOf(const Clock& clock);

// When the exchanges of the United States end their session on `day`, in minutes since midnight: 13:00 on the
// eve of a holiday, else 16:00.
int UnitedStatesClose(std::chrono::sys_days day);

// The newest weekday whose session at the zone is over at `now`. Holidays count as days: that nothing was
// traded is for the source to say.
std::chrono::sys_days NewestEndedDay(const ZoneRule& zone, EpochSeconds now);
std::chrono::sys_days WeekdayBefore(std::chrono::sys_days day);
bool IsWeekend(std::chrono::sys_days day);
// Whether the session of `day` is over at `now`.
bool IsOver(const ZoneRule& zone, std::chrono::sys_days day, EpochSeconds now);

}  // namespace brantlow
