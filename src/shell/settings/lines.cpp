#include "shell/settings/lines.h"

#include <algorithm>

#include "base/numbers.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

Value ValueOf(LineForm form, std::string_view text) {
    switch (form) {
        case LineForm::Number:
            return text.empty() ? Value::OfText(text) : Value::OfNumber(LeadingNumber(text));
        case LineForm::Printed:
            return Value::OfRawLine(text);
        case LineForm::Written:
            break;
    }
    return Value::OfText(text);
}

void SetValue(SettingsTables& tables, const LineRow& row, Value value) {
    const auto table = FormOf(row.file).table;
    if (table == nullptr) {
        tables.QuoteHost = value.Text();
    } else {
        (tables.*table).Set(row.number, std::move(value));
    }
}

// The number that the text begins with, nothing where it begins with none.
std::optional<double> NumberAtFront(std::string_view text) {
    const double leading = LeadingNumber(text);
    return leading != 0 ? std::optional(leading) : WholeNumber(text);
}

}  // namespace

const std::string& TextOf(const SettingsTables& tables, const LineRow& row) {
    const auto table = FormOf(row.file).table;
    return table == nullptr ? tables.QuoteHost : (tables.*table).Text(row.number);
}

void SetText(SettingsTables& tables, const LineRow& row, std::string_view text) {
    SetValue(tables, row, ValueOf(row.form, text));
}

std::optional<std::size_t> ChoiceOf(const LineRow& row, std::string_view text) {
    const auto found = std::find(row.choices.begin(), row.choices.end(), text);
    if (found == row.choices.end()) return std::nullopt;
    return static_cast<std::size_t>(found - row.choices.begin());
}

bool Get(const SettingsTables& tables, FlagLine line) {
    return TextOf(tables, line) == line.row->choices.front();
}

double Get(const SettingsTables& tables, NumberLine line) {
    const auto number = NumberAtFront(TextOf(tables, line));
    if (!number || *number < line.row->least) return line.row->fallback;
    return std::min(*number, static_cast<double>(line.row->most));
}

std::optional<int> Get(const SettingsTables& tables, TimeLine line) {
    const std::optional<double> number = WholeNumber(TextOf(tables, line));
    if (!number || *number < 0 || *number > line.row->most) return std::nullopt;
    const int whole = static_cast<int>(*number);
    if (whole != *number) return std::nullopt;
    return whole;
}

std::optional<Date> Get(const SettingsTables& tables, DateLine line) {
    return ParseDate(TextOf(tables, line));
}

const std::string& Get(const SettingsTables& tables, TextLine line) {
    return TextOf(tables, line);
}

void Set(SettingsTables& tables, FlagLine line, bool on) {
    SetText(tables, *line.row, line.row->choices[on ? 0 : 1]);
}

void Set(SettingsTables& tables, NumberLine line, double number) {
    SetText(tables, *line.row, ShortestNumber(number));
}

void Set(SettingsTables& tables, DateLine line, const Date& date) {
    SetValue(tables, *line.row, Value::OfDate(date));
}

void Set(SettingsTables& tables, TextLine line, std::string_view text) {
    SetText(tables, *line.row, text);
}

void Set(SettingsTables& tables, TimeLine line, std::string_view digits) {
    SetText(tables, *line.row, digits);
}

}  // namespace brantlow
