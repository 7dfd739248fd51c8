#include "batch/command.h"

#include <array>
#include <charconv>

#include "base/text.h"

namespace brantlow {

namespace {

struct IntervalName {
    std::string_view word;
    Interval interval;
};

constexpr std::array<IntervalName, 3> kIntervalNames = {
    {{"daily", Interval::Daily}, {"weekly", Interval::Weekly}, {"monthly", Interval::Monthly}}};

// The value of a text that is `count` digits and nothing else.
std::optional<int> Digits(std::string_view text, std::size_t count) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || text.size() != count || text.front() == '-') return std::nullopt;
    return value;
}

}  // namespace

std::string Arguments::Text(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::string() : found->second;
}

bool AlwaysWrites(const Arguments&) {
    return true;
}

std::optional<Interval> ParseInterval(std::string_view word) {
    for (const IntervalName& row : kIntervalNames) {
        if (row.word == word) return row.interval;
    }
    return std::nullopt;
}

std::string_view IntervalArgument(Interval interval) {
    for (const IntervalName& row : kIntervalNames) {
        if (row.interval == interval) return row.word;
    }
    return {};
}

std::optional<std::string> RefuseInterval(std::string_view text) {
    if (ParseInterval(text)) return std::nullopt;
    return "'" + std::string(text) + "' is none of daily, weekly, monthly";
}

Interval ChosenInterval(const Arguments& arguments) {
    return ParseInterval(arguments.Text(kIntervalOption.name)).value_or(Interval::Daily);
}

std::optional<Date> ReadIsoDate(std::string_view text) {
    const std::vector<std::string_view> parts = SplitAt(text, '-');
    if (parts.size() != 3) return std::nullopt;
    const auto year = Digits(parts[0], 4);
    const auto month = Digits(parts[1], 2);
    const auto day = Digits(parts[2], 2);
    constexpr int kFirstYear = 1900;
    if (!year || !month || !day || *year < kFirstYear) return std::nullopt;
    const Date date{std::chrono::year{*year}, std::chrono::month{static_cast<unsigned>(*month)},
                    std::chrono::day{static_cast<unsigned>(*day)}};
    if (!date.ok()) return std::nullopt;
    return date;
}

std::optional<std::string> RefuseDay(std::string_view text) {
    if (ReadIsoDate(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no day of the form YYYY-MM-DD";
}

std::optional<int> ReadClockTime(std::string_view text) {
    const std::vector<std::string_view> parts = SplitAt(text, ':');
    if (parts.size() != 2) return std::nullopt;
    const auto hour = Digits(parts[0], 2);
    const auto minute = Digits(parts[1], 2);
    constexpr int kHours = 24;
    constexpr int kMinutes = 60;
    if (!hour || !minute || *hour >= kHours || *minute >= kMinutes) return std::nullopt;
    return *hour * kMinutes + *minute;
}

std::optional<int> ReadSeconds(std::string_view text) {
    constexpr std::size_t kMostDigits = 5;
    constexpr int kMostSeconds = 24 * 60 * 60;
    if (text.empty() || text.size() > kMostDigits) return std::nullopt;
    const auto seconds = Digits(text, text.size());
    return seconds && *seconds <= kMostSeconds ? seconds : std::nullopt;
}

ExitStatus RefuseUsage(BatchCall& call, std::string_view name, std::string_view reason) {
    call.err << OneLine(name) << ": " << OneLine(reason) << '\n';
    return ExitStatus::Usage;
}

ExitStatus Refuse(BatchCall& call, std::string_view sentence) {
    call.err << OneLine(sentence) << '\n';
    return ExitStatus::Refused;
}

ExitStatus Refuse(BatchCall& call, const Failure& failure) {
    return Refuse(call, Sentence(failure));
}

ExitStatus RefuseChange(BatchCall& call, std::string_view what, const Failure& fault) {
    Refuse(call, ChangeSentence(what, fault));
    return fault.isHalfDone ? ExitStatus::Partly : ExitStatus::Refused;
}

std::string OneLine(std::string_view text) {
    std::string line(text);
    for (char& c : line) {
        const auto code = static_cast<unsigned char>(c);
        constexpr unsigned char kDelete = 127;
        if (code < ' ' || code == kDelete) c = '?';
    }
    return line;
}

bool StaysInDataFolder(std::string_view name) {
    const Path path(name);
    if (name.empty() || name.find('\0') != std::string_view::npos || path.is_absolute()) return false;
    for (const Path& part : path) {
        if (part == "..") return false;
    }
    return true;
}

std::optional<Path> ExistingDataFile(BatchCall& call, std::string_view name) {
    if (StaysInDataFolder(name)) {
        const Path file = call.session.DataFile(name);
        if (IsRegularFile(file)) return file;
    }
    Refuse(call, std::string(name) + ": no such file in Data");
    return std::nullopt;
}

}  // namespace brantlow
