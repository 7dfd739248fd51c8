#include "alerts/alarm_edit.h"

#include <fmt/format.h>

#include "alerts/price_alarms.h"
#include "base/numbers.h"
#include "base/text.h"
#include "shell/status_words.h"
#include "store/table_colours.h"

namespace brantlow {

namespace {

// True when the table has the column and a text for it.
bool WriteAlarm(QuoteTable& table, std::size_t row, std::string_view header,
                const std::optional<std::string>& text) {
    const auto column = table.ColumnOf(header);
    if (!column || !text) return false;
    table.SetText(row, *column, *text);
    return true;
}

}  // namespace

std::string RefusedAlarms(std::string_view high, std::string_view low) {
    struct Alarm {
        std::string_view name;
        std::string_view text;
    };
    for (const Alarm& alarm : {Alarm{"high", high}, Alarm{"low", low}}) {
        if (Trim(alarm.text).empty()) continue;
        const auto number = WholeNumber(alarm.text);
        if (number && *number >= 0) continue;
        return "The " + std::string(alarm.name) + " alarm has to be a price: " + std::string(alarm.text);
    }
    const double least = LeadingNumber(low);
    const double most = LeadingNumber(high);
    if (least <= 0 || most <= 0 || least <= most) return {};
    return "The low alarm " + std::string(low) + " is above the high alarm " + std::string(high) + ".";
}

namespace {

// The column that one of these alarms would stand in and that the table does not have; empty where each has
// its own. An alarm that is taken away needs none.
std::string_view MissingColumn(const QuoteTable& table, const AlarmTexts& alarms) {
    const auto isMissing = [&](std::string_view header, const std::optional<std::string>& text) {
        return text && !Trim(*text).empty() && !table.ColumnOf(header);
    };
    if (isMissing(kHighAlarmColumn, alarms.high)) return kHighAlarmColumn;
    return isMissing(kLowAlarmColumn, alarms.low) ? kLowAlarmColumn : std::string_view();
}

}  // namespace

std::string NoAlarmColumnSentence(std::string_view file, std::string_view column) {
    return fmt::format("{} has no column {}, so the alarm cannot be kept. No alarm was changed.", file,
                       column);
}

TableEdit EditAlarms(Session& session, QuoteTable& table, std::string_view symbol, const AlarmTexts& alarms) {
    if (RefuseTableEdit(session, symbol, kEditNeedsTicker)) return {.outcome = EditOutcome::Refused};
    if (KindOf(session.CurrentFile) != FileKind::Ddq) return {};
    const std::string ticker = TableSpelling(symbol);
    const std::string_view missing = MissingColumn(table, alarms);
    TableEdit edit;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (table.Ticker(row) != ticker) continue;
        if (!missing.empty()) {
            session.person.Say(NoAlarmColumnSentence(session.CurrentFile, missing));
            return {.outcome = EditOutcome::Refused};
        }
        const bool high = WriteAlarm(table, row, kHighAlarmColumn, alarms.high);
        const bool low = WriteAlarm(table, row, kLowAlarmColumn, alarms.low);
        if (!high && !low) continue;
        ColorQuoteRow(table, row, session.clock.Today());
        edit.outcome = EditOutcome::Changed;
    }
    if (edit.outcome == EditOutcome::Changed) {
        edit.saveError = AutomaticSave(session, table);
        session.person.ShowStatusWord(kStatusComplete);
    }
    return edit;
}

}  // namespace brantlow
