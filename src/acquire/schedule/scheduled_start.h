// When the system starts the program for its daily run, and how that is written for the two schedulers it may
// have: a timer of the user's systemd, or a line of the user's crontab. Installing is in start_keeper.h.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"

namespace brantlow {

// How long before the chosen time the program is started.
inline constexpr int kStartEarlyMinutes = 5;

inline constexpr std::size_t kDaysInWeek = 7;

// Days of the week, Monday first, and a minute of the day, 0 to 1439.
struct WeeklyTime {
    std::array<bool, kDaysInWeek> days{};
    int minute = 0;

    bool operator==(const WeeklyTime&) const = default;
};

inline constexpr std::array<bool, kDaysInWeek> kMondayToFriday = {true, true, true, true, true, false, false};

// Days of the form "mon,tue", in any case and order; nothing for an empty or an unknown name.
std::optional<std::array<bool, kDaysInWeek>> ParseDays(std::string_view text);
// "mon,tue,wed,thu,fri 16:25".
std::string WeeklyTimeText(const WeeklyTime& time);

// kStartEarlyMinutes before `chosen`. A start before midnight falls on the days before.
WeeklyTime StartTimeFor(const WeeklyTime& chosen);
// The other way round: the chosen time that has this start.
WeeklyTime ChosenTimeOf(const WeeklyTime& start);

// The program's argument when it is started so: where it is open already, the new copy ends without a word.
inline constexpr const char* kScheduledFlag = "--scheduled";

// What is started.
struct StartedProgram {
    Path program;
    Path appPath;
    // Name and value of what a program needs to reach the screen, for a scheduler that knows of none.
    std::vector<std::pair<std::string, std::string>> screen;
};

// False when a path holds a line end or another control character, which no scheduler's file can hold.
bool CanBeScheduled(const StartedProgram& started);

inline constexpr const char* kTimerName = "brantlow.timer";
inline constexpr const char* kServiceName = "brantlow.service";

std::string TimerText(const WeeklyTime& start);
std::string ServiceText(const StartedProgram& started);
// The time in a text that TimerText made, or nothing.
std::optional<WeeklyTime> ReadTimer(std::string_view text);

// One line with its line end; it ends with a remark by which the program knows it again.
std::string CrontabLine(const WeeklyTime& start, const StartedProgram& started);
// The time of the program's own line in a crontab, or nothing.
std::optional<WeeklyTime> ReadCrontab(std::string_view crontab);
// The crontab without the program's own lines; the others stay byte for byte.
std::string WithoutOwnLines(std::string_view crontab);
// The same with `line` at its end.
std::string WithOwnLine(std::string_view crontab, std::string_view line);

}  // namespace brantlow
