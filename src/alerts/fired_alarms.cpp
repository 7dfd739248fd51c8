#include "alerts/fired_alarms.h"

#include <algorithm>
#include <array>

#include "alerts/price_alarms.h"
#include "base/control_characters.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

// In the order of AlarmMailing.
constexpr std::array<std::string_view, 3> kMailingMarks = {"to be mailed", "mailed", "no mail"};
constexpr std::size_t kDayLength = 10;

constexpr std::array<std::string_view, 2> kKindWords = {"high", "low"};

// A field's text, which cannot hold what parts fields and lines.
std::string Field(std::string_view text) {
    std::string field(text);
    std::replace_if(field.begin(), field.end(), IsControl, ' ');
    return field;
}

// What is none of the marks is one that an update is still to take along.
AlarmMailing MailingOf(std::string_view mark) {
    const auto found = std::find(kMailingMarks.begin(), kMailingMarks.end(), mark);
    if (found == kMailingMarks.end()) return AlarmMailing::Due;
    return static_cast<AlarmMailing>(found - kMailingMarks.begin());
}

std::string LineOf(const FiredAlarm& alarm) {
    std::string line;
    for (const std::string_view text :
         {std::string_view(alarm.when), std::string_view(alarm.ticker), std::string_view(alarm.price),
          AlarmKindWord(alarm.kind), std::string_view(alarm.limit), std::string_view(alarm.table)}) {
        line.append(Field(text)).append("\t");
    }
    return line.append(kMailingMarks[static_cast<std::size_t>(alarm.mailing)]).append(kLineEnd);
}

std::optional<FiredAlarm> AlarmOfLine(std::string_view line) {
    constexpr std::size_t kFields = 7;
    const std::vector<std::string_view> fields = SplitAt(line, '\t');
    if (fields.size() != kFields || fields[1].empty()) return std::nullopt;
    FiredAlarm alarm;
    alarm.when = fields[0];
    alarm.ticker = fields[1];
    alarm.price = fields[2];
    alarm.kind = fields[3] == kKindWords.back() ? AlarmKind::Low : AlarmKind::High;
    alarm.limit = fields[4];
    alarm.table = fields[5];
    alarm.mailing = MailingOf(fields[6]);
    return alarm;
}

bool IsSameAlarm(const FiredAlarm& a, const FiredAlarm& b) {
    return a.ticker == b.ticker && a.kind == b.kind && a.limit == b.limit && a.table == b.table &&
           a.when.substr(0, kDayLength) == b.when.substr(0, kDayLength);
}

bool IsOneOf(const std::vector<FiredAlarm>& alarms, const FiredAlarm& alarm) {
    return std::any_of(alarms.begin(), alarms.end(),
                       [&](const FiredAlarm& one) { return IsSameAlarm(one, alarm); });
}

Failure WriteList(const Path& file, const std::vector<FiredAlarm>& alarms) {
    std::string bytes;
    for (const FiredAlarm& alarm : alarms) bytes += LineOf(alarm);
    return FailedTo(FailureKind::Write, file, WriteWholeFile(file, bytes));
}

double NumberAt(const QuoteTable& table, std::size_t row, const std::optional<std::size_t>& column) {
    return column && *column > 0 ? LeadingNumber(table.Text(row, *column)) : 0;
}

}  // namespace

std::string_view AlarmKindWord(AlarmKind kind) {
    return kKindWords.at(static_cast<std::size_t>(kind));
}

std::optional<FiredAlarm> FiredAlarmOf(const QuoteTable& table, std::size_t row,
                                       const ColumnPositions& columns) {
    if (!columns.LastColumn || *columns.LastColumn == 0) return std::nullopt;
    const double last = NumberAt(table, row, columns.LastColumn);
    if (!(last >= 0)) return std::nullopt;
    const double high = NumberAt(table, row, columns.HighAlarmColumn);
    const double low = NumberAt(table, row, columns.LowAlarmColumn);
    const bool isHigh = high > 0 && high <= last;
    const bool isLow = low > 0 && last <= low;
    if (!isHigh && !isLow) return std::nullopt;
    FiredAlarm alarm;
    alarm.ticker = table.Ticker(row);
    alarm.price = table.Text(row, *columns.LastColumn);
    alarm.kind = isHigh ? AlarmKind::High : AlarmKind::Low;
    alarm.limit = table.Text(row, isHigh ? *columns.HighAlarmColumn : *columns.LowAlarmColumn);
    return alarm;
}

std::string AlarmSentence(const FiredAlarm& alarm) {
    return Field(alarm.ticker) + ": " + Field(alarm.price) +
           (alarm.kind == AlarmKind::High ? " reached the high alarm " : " fell to the low alarm ") +
           Field(alarm.limit);
}

std::vector<FiredAlarm> LoadFiredAlarms(const Path& dataFolder, Failure& failure) {
    std::string bytes;
    std::vector<FiredAlarm> alarms;
    failure = ReadIfThere(dataFolder / kFiredAlarmsName, bytes);
    LineReader lines(bytes);
    for (std::string_view line; lines.Next(line);) {
        if (auto alarm = AlarmOfLine(line)) alarms.push_back(std::move(*alarm));
    }
    return alarms;
}

Failure KeepFiredAlarms(const Path& dataFolder, const std::vector<FiredAlarm>& alarms) {
    Failure failure;
    std::vector<FiredAlarm> kept = LoadFiredAlarms(dataFolder, failure);
    if (failure || alarms.empty()) return failure;
    for (const FiredAlarm& alarm : alarms) {
        std::erase_if(kept, [&](const FiredAlarm& old) { return IsSameAlarm(old, alarm); });
        kept.push_back(alarm);
    }
    if (kept.size() > kMostRows)
        kept.erase(kept.begin(), kept.end() - static_cast<std::ptrdiff_t>(kMostRows));
    return WriteList(dataFolder / kFiredAlarmsName, kept);
}

std::vector<FiredAlarm> AlarmsToMail(const Path& dataFolder, Failure& failure) {
    std::vector<FiredAlarm> due = LoadFiredAlarms(dataFolder, failure);
    std::erase_if(due, [](const FiredAlarm& alarm) { return alarm.mailing != AlarmMailing::Due; });
    return due;
}

Failure MarkAlarmsMailed(const Path& dataFolder, const std::vector<FiredAlarm>& mailed) {
    Failure failure;
    std::vector<FiredAlarm> alarms = LoadFiredAlarms(dataFolder, failure);
    if (failure || alarms.empty()) return failure;
    for (FiredAlarm& alarm : alarms) {
        if (IsOneOf(mailed, alarm)) alarm.mailing = AlarmMailing::Sent;
    }
    return WriteList(dataFolder / kFiredAlarmsName, alarms);
}

Failure MarkAlarmsRead(const Path& dataFolder, const std::vector<FiredAlarm>& read) {
    Failure failure;
    std::vector<FiredAlarm> alarms = LoadFiredAlarms(dataFolder, failure);
    if (failure) return failure;
    if (std::erase_if(alarms, [&](const FiredAlarm& alarm) { return IsOneOf(read, alarm); }) == 0) return {};
    return alarms.empty() ? ForgetFiredAlarms(dataFolder) : WriteList(dataFolder / kFiredAlarmsName, alarms);
}

Failure ForgetFiredAlarms(const Path& dataFolder) {
    return DeleteIfThere(dataFolder / kFiredAlarmsName);
}

}  // namespace brantlow
