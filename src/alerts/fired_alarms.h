// Price alarms that fired: what an update notices of them, and the list in Data/Fired Alarms.txt that keeps
// them until a person has read them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "store/quote_table.h"
#include "store/table_colours.h"

namespace brantlow {

inline constexpr std::string_view kFiredAlarmsName = "Fired Alarms.txt";

// How an alarm stands with the mail.
enum class AlarmMailing {
    Due,
    Sent,
    Unwanted,  // no mail was set up when it fired, and none goes later
};

enum class AlarmKind { High, Low };
// "high", "low".
std::string_view AlarmKindWord(AlarmKind kind);

struct FiredAlarm {
    std::string when;  // "YYYY-MM-DD HH:MM", of the price
    std::string ticker;
    std::string price;  // as the table shows it
    AlarmKind kind = AlarmKind::High;
    std::string limit;
    std::string table;  // the file that holds the alarm
    AlarmMailing mailing = AlarmMailing::Due;
};

// The alarm of row `row` that its last price has reached; the high one where both are. Nothing where none is.
// `when` and `table` are left to the caller.
std::optional<FiredAlarm> FiredAlarmOf(const QuoteTable& table, std::size_t row,
                                       const ColumnPositions& columns);

// "KO: 72.000 reached the high alarm 70".
std::string AlarmSentence(const FiredAlarm& alarm);

// Tab-separated, a line an alarm, oldest first. A line that is none is passed over. Empty where the file is
// missing; `failure` is set for one that cannot be read.
std::vector<FiredAlarm> LoadFiredAlarms(const Path& dataFolder, Failure& failure);

// Puts the alarms behind those of the list. One of the same ticker, day, kind and limit takes the place of
// the older one. The newest kMostRows stay.
Failure KeepFiredAlarms(const Path& dataFolder, const std::vector<FiredAlarm>& alarms);

// Those of the list that are to be mailed still.
std::vector<FiredAlarm> AlarmsToMail(const Path& dataFolder, Failure& failure);

// Notes that these alarms of the list were mailed.
Failure MarkAlarmsMailed(const Path& dataFolder, const std::vector<FiredAlarm>& mailed);

// A person has read these: they leave the list.
Failure MarkAlarmsRead(const Path& dataFolder, const std::vector<FiredAlarm>& read);

// A person has read the whole list: it ends.
Failure ForgetFiredAlarms(const Path& dataFolder);

}  // namespace brantlow
