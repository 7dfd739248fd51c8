// Editing the alarms of a ticker in the open table, as the button "Edit Alarm" does.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "shell/session.h"
#include "store/quote_table.h"
#include "store/table_edit.h"

namespace brantlow {

inline constexpr std::string_view kEditNeedsTicker =
    "Enter a Ticker Symbol in the Symbol Box before selecting Edit";

// What the alarm cells take: text as it was typed. A cell without a text keeps what it holds.
struct AlarmTexts {
    std::optional<std::string> high;
    std::optional<std::string> low;
};

// Why these texts are no alarms, a sentence: not a number, or a low one above the high one. Empty where they
// can be; an empty text is no alarm.
std::string RefusedAlarms(std::string_view high, std::string_view low);

std::string NoAlarmColumnSentence(std::string_view file, std::string_view column);

// Writes the alarms of `symbol`, in any case, in the table that the session's CurrentFile names; a table of
// another kind than end-of-day stays as it is, and so does one without this ticker. The row takes the colours
// that its new alarms ask for. Saved when the settings save by themselves. A refusal is said to the session's
// person: one of the texts is an alarm, and the table has no column for it.
TableEdit EditAlarms(Session& session, QuoteTable& table, std::string_view symbol, const AlarmTexts& alarms);

}  // namespace brantlow
