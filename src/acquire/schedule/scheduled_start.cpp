#include "acquire/schedule/scheduled_start.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr int kMinutesPerHour = 60;
constexpr int kMinutesPerDay = 24 * 60;
constexpr std::string_view kCalendarKey = "OnCalendar=";
constexpr std::string_view kOwnRemark = " # Brantlow: started for the daily update";

struct Day {
    std::string_view name;
    std::string_view timerName;
    std::string_view crontabName;
};

constexpr std::array<Day, kDaysInWeek> kDays = {{{"mon", "Mon", "1"},
                                                 {"tue", "Tue", "2"},
                                                 {"wed", "Wed", "3"},
                                                 {"thu", "Thu", "4"},
                                                 {"fri", "Fri", "5"},
                                                 {"sat", "Sat", "6"},
                                                 {"sun", "Sun", "0"}}};

using DayName = std::string_view Day::*;

std::string JoinDays(const std::array<bool, kDaysInWeek>& days, DayName name) {
    std::string text;
    for (std::size_t i = 0; i < kDaysInWeek; ++i) {
        if (!days[i]) continue;
        if (!text.empty()) text += ',';
        text += kDays[i].*name;
    }
    return text;
}

std::optional<std::array<bool, kDaysInWeek>> SplitDays(std::string_view text, DayName name) {
    std::array<bool, kDaysInWeek> days{};
    for (const std::string_view word : SplitAt(text, ',')) {
        const auto found = std::find_if(kDays.begin(), kDays.end(), [&](const Day& day) {
            return EqualIgnoringCase(day.*name, Trim(word));
        });
        if (found == kDays.end()) return std::nullopt;
        days[static_cast<std::size_t>(found - kDays.begin())] = true;
    }
    return days;
}

// `text` with each character of `marked` written as `mark` and the character.
std::string Escaped(std::string_view text, std::string_view marked, char mark) {
    std::string escaped;
    for (const char c : text) {
        if (marked.find(c) != std::string_view::npos) escaped += mark;
        escaped += c;
    }
    return escaped;
}

// In double quotes for a unit file, where a percent sign begins a placeholder.
std::string UnitQuoted(std::string_view text) {
    return '"' + Escaped(Escaped(text, "%", '%'), "\\\"", '\\') + '"';
}

// In single quotes for the shell of a crontab line, where a percent sign ends the line.
std::string CrontabQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return Escaped(quoted + '\'', "%", '\\');
}

bool HoldsControl(std::string_view text) {
    constexpr unsigned char kDelete = 127;
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code < ' ' || code == kDelete;
    });
}

bool IsOwnLine(std::string_view line) {
    return line.ends_with(kOwnRemark);
}

}  // namespace

std::optional<std::array<bool, kDaysInWeek>> ParseDays(std::string_view text) {
    return SplitDays(text, &Day::name);
}

std::string WeeklyTimeText(const WeeklyTime& time) {
    return JoinDays(time.days, &Day::name) + ' ' + FormatTime(time.minute);
}

WeeklyTime StartTimeFor(const WeeklyTime& chosen) {
    WeeklyTime start = chosen;
    start.minute -= kStartEarlyMinutes;
    if (start.minute >= 0) return start;
    start.minute += kMinutesPerDay;
    std::rotate(start.days.begin(), start.days.begin() + 1, start.days.end());
    return start;
}

WeeklyTime ChosenTimeOf(const WeeklyTime& start) {
    WeeklyTime chosen = start;
    chosen.minute += kStartEarlyMinutes;
    if (chosen.minute < kMinutesPerDay) return chosen;
    chosen.minute -= kMinutesPerDay;
    std::rotate(chosen.days.begin(), chosen.days.end() - 1, chosen.days.end());
    return chosen;
}

bool CanBeScheduled(const StartedProgram& started) {
    const bool screenHolds = std::any_of(started.screen.begin(), started.screen.end(),
                                         [](const auto& entry) { return HoldsControl(entry.second); });
    return !screenHolds && !HoldsControl(started.program.native()) && !HoldsControl(started.appPath.native());
}

std::string TimerText(const WeeklyTime& start) {
    return fmt::format(
        "[Unit]\n"
        "Description=Starts Brantlow for its daily update\n"
        "\n"
        "[Timer]\n"
        "{}{} *-*-* {}:00\n"
        "AccuracySec=1s\n"
        "Unit={}\n"
        "\n"
        "[Install]\n"
        "WantedBy=timers.target\n",
        kCalendarKey, JoinDays(start.days, &Day::timerName), FormatTime(start.minute), kServiceName);
}

std::string ServiceText(const StartedProgram& started) {
    return fmt::format(
        "[Unit]\n"
        "Description=Brantlow, started for its daily update\n"
        "\n"
        "[Service]\n"
        "Environment={}\n"
        "ExecStart={} {}\n",
        UnitQuoted("BRANTLOW_HOME=" + started.appPath.native()), UnitQuoted(started.program.native()),
        kScheduledFlag);
}

std::optional<WeeklyTime> ReadTimer(std::string_view text) {
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
        if (!line.starts_with(kCalendarKey)) continue;
        const std::vector<std::string_view> parts = SplitAt(line.substr(kCalendarKey.size()), ' ');
        if (parts.size() != 3) return std::nullopt;
        const auto days = SplitDays(parts[0], &Day::timerName);
        const auto minute = ParseTime(parts[2]);
        if (!days || !minute) return std::nullopt;
        return WeeklyTime{*days, *minute};
    }
    return std::nullopt;
}

std::string CrontabLine(const WeeklyTime& start, const StartedProgram& started) {
    std::string line = fmt::format("{} {} * * {} BRANTLOW_HOME={} ", start.minute % kMinutesPerHour,
                                   start.minute / kMinutesPerHour, JoinDays(start.days, &Day::crontabName),
                                   CrontabQuoted(started.appPath.native()));
    for (const auto& [name, value] : started.screen) line += name + '=' + CrontabQuoted(value) + ' ';
    line.append(CrontabQuoted(started.program.native())).append(" ").append(kScheduledFlag);
    return line.append(kOwnRemark).append("\n");
}

std::optional<WeeklyTime> ReadCrontab(std::string_view crontab) {
    LineReader lines(crontab);
    for (std::string_view line; lines.Next(line);) {
        if (!IsOwnLine(line)) continue;
        const std::vector<std::string_view> parts = SplitAt(line, ' ');
        constexpr std::size_t kTimeParts = 5;
        if (parts.size() <= kTimeParts) continue;
        const auto minute = WholeNumber(parts[0]);
        const auto hour = WholeNumber(parts[1]);
        const auto days = SplitDays(parts[4], &Day::crontabName);
        if (!minute || !hour || !days) continue;
        const double whole = *hour * kMinutesPerHour + *minute;
        if (whole < 0 || whole >= kMinutesPerDay) continue;
        return WeeklyTime{*days, static_cast<int>(whole)};
    }
    return std::nullopt;
}

std::string WithoutOwnLines(std::string_view crontab) {
    std::string kept;
    while (!crontab.empty()) {
        const std::size_t end = std::min(crontab.find('\n'), crontab.size() - 1) + 1;
        const std::string_view line = crontab.substr(0, end);
        if (!IsOwnLine(line.substr(0, line.find_last_not_of("\r\n") + 1))) kept += line;
        crontab.remove_prefix(end);
    }
    return kept;
}

std::string WithOwnLine(std::string_view crontab, std::string_view line) {
    std::string text = WithoutOwnLines(crontab);
    if (!text.empty() && text.back() != '\n') text += '\n';
    return text.append(line);
}

}  // namespace brantlow
