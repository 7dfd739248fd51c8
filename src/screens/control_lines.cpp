#include "screens/control_lines.h"

#include <algorithm>
#include <optional>
#include <span>

#include "acquire/web/hosts.h"
#include "base/numbers.h"
#include "screens/control_loading.h"
#include "screens/settings_store.h"

namespace brantlow {

namespace {

constexpr std::size_t kBackUpDateLine = 13;

// The lines that Default keeps as the dialog shows them. Other lines that it keeps stay as they are in force.
struct KeptLine {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
};
constexpr std::array kKeptFromControl = {
    KeptLine{SettingsFile::Data, 3, "Text2"},     KeptLine{SettingsFile::Data, 5, "Text3"},
    KeptLine{SettingsFile::Data, 18, "Text4"},    KeptLine{SettingsFile::Graph, 9, "Combo14"},
    KeptLine{SettingsFile::Graph, 10, "Combo15"}, KeptLine{SettingsFile::Net, 2, "Combo1"},
    KeptLine{SettingsFile::Net, 4, "Text11"},     KeptLine{SettingsFile::Net, 5, "Text13"},
    KeptLine{SettingsFile::ImEx, 2, "Text7"},     KeptLine{SettingsFile::ImEx, 5, "Text8"},
};

const SettingsControl& At(const SettingsControls& controls, std::string_view name) {
    return controls.at(name);
}

Value ValueOf(LineForm form, std::string_view text) {
    switch (form) {
        case LineForm::Number:
            return Value::OfNumber(LeadingNumber(text));
        case LineForm::Printed:
            return Value::OfRawLine(text);
        case LineForm::Written:
            break;
    }
    return Value::OfText(text);
}

// Every line of the file that one control stands for.
void TakeSingleLines(SettingsFile file, const SettingsControls& controls, SettingsTable& table) {
    for (const OptionRow& row : kOptionRows) {
        if (row.file == file && At(controls, row.control).on) {
            table.Set(row.line, ValueOf(row.form, row.value));
        }
    }
    for (const CheckRow& row : kCheckRows) {
        if (row.file == file) {
            table.Set(row.line, Value::OfText(At(controls, row.control).on ? row.on : row.off));
        }
    }
    for (const TextRow& row : kTextRows) {
        if (row.file == file) table.Set(row.line, ValueOf(row.form, At(controls, row.control).text));
    }
    for (const NumberRow& row : kNumberRows) {
        if (row.file == file) table.Set(row.line, ValueOf(row.form, At(controls, row.control).text));
    }
    for (const DateFormRow& row : kDateFormRows) {
        if (row.file == file) table.Set(row.line, Value::OfText(At(controls, row.control).text));
    }
}

void Append(std::string_view text, SettingsTable& table) {
    table.Set(table.Size() + 1, Value::OfText(text));
}

template <class Names>
void AppendAll(const Names& names, SettingsTable& table) {
    for (const auto& name : names) Append(name, table);
}

// A value that is no day was never one of a back-up.
Value BackUpDate(const Value& stored, const Date& today) {
    if (stored.ValueKind() == Value::Kind::Day) return stored;
    return Value::OfDate(ParseDate(stored.Text()).value_or(today));
}

bool AnyYearsChosen(const SettingsControls& controls) {
    return std::any_of(kOptionRows.begin(), kOptionRows.end(),
                       [&](const OptionRow& row) { return IsYears(row) && At(controls, row.control).on; });
}

void TakeData(const SettingsControls& controls, const LineSources& from, SettingsTables& next) {
    SettingsTable& table = next.DataSettings;
    TakeSingleLines(SettingsFile::Data, controls, table);
    if (!At(controls, kHistoryCheck).on || !AnyYearsChosen(controls)) {
        table.Set(kHistoryYearsLine, Value::OfText(""));
    }
    for (const TimeRow& row : kTimeRows) table.Set(row.line, Value::OfText(At(controls, row.control).text));
    table.Set(kBackUpDateLine, BackUpDate(table.At(kBackUpDateLine), from.today));
    const bool elsewhere = At(controls, "Check4").on;
    SetDatabasePlace(elsewhere ? std::optional(At(controls, "Text4").text) : std::nullopt, from.appPath,
                     next);
}

void TakeGraph(const SettingsControls& controls, SettingsTable& table) {
    table.Clear();
    TakeSingleLines(SettingsFile::Graph, controls, table);
    Append(kPriceName, table);
    AppendAll(At(controls, "List5").items, table);
    for (const ConditionRow& row : kConditionRows) Append(At(controls, row.control).text, table);
}

void TakeNet(const SettingsControls& controls, SettingsTables& next) {
    SettingsTable& table = next.NetSettings;
    table.Clear();
    TakeSingleLines(SettingsFile::Net, controls, table);
    Append(kStartEod, table);
    AppendAll(At(controls, "List12").items, table);
    Append(kEndEod, table);
    Append(kStartHistory, table);
    AppendAll(At(controls, "List16").items, table);
    Append(kEndHistory, table);
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        if (At(controls, kMarkets[i].control).on) ChooseMarket(i, next);
    }
}

void TakeImEx(const SettingsControls& controls, SettingsTable& table) {
    table.Clear();
    TakeSingleLines(SettingsFile::ImEx, controls, table);
    AppendAll(At(controls, "List2").items, table);
    Append(kEndExportFile, table);
    AppendAll(At(controls, "List4").items, table);
    Append(kEndImportFile, table);
}

// A kept line of options holds one of their values afterwards.
Value KeptValue(SettingsFile file, std::size_t line, const SettingsControls& controls,
                const SettingsTables& settings, LineForm form) {
    for (const KeptLine& row : kKeptFromControl) {
        if (row.file == file && row.line == line) return ValueOf(form, At(controls, row.control).text);
    }
    const std::string& text = (settings.*FormOf(file).table).Text(line);
    const OptionRow* option = OptionFor(file, line, text);
    return ValueOf(form, option ? option->value : std::string_view(text));
}

void TakeDefaults(SettingsFile file, std::span<const DefaultLine> rows, const SettingsControls& controls,
                  const LineSources& from, SettingsTable& table) {
    table.Clear();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const DefaultLine& row = rows[i];
        const std::size_t line = i + 1;
        switch (row.kind) {
            case DefaultKind::Text:
                table.Set(line, Value::OfText(row.text));
                break;
            case DefaultKind::Number:
                table.Set(line, Value::OfNumber(LeadingNumber(row.text)));
                break;
            case DefaultKind::Raw:
                table.Set(line, Value::OfRawLine(row.text));
                break;
            case DefaultKind::Today:
                table.Set(line, Value::OfDate(from.today));
                break;
            case DefaultKind::Kept:
                table.Set(line, KeptValue(file, line, controls, from.settings, LineForm::Written));
                break;
            case DefaultKind::KeptRaw:
                table.Set(line, KeptValue(file, line, controls, from.settings, LineForm::Printed));
                break;
        }
    }
}

}  // namespace

SettingsTables TablesWithControls(SettingsTab tab, const SettingsControls& controls,
                                  const LineSources& from) {
    SettingsTables next = from.settings;
    switch (tab) {
        case SettingsTab::ImportExport:
            TakeImEx(controls, next.ImExSettings);
            break;
        case SettingsTab::DataAutomation:
            TakeData(controls, from, next);
            break;
        case SettingsTab::Graphics:
            TakeGraph(controls, next.GraphSettings);
            break;
        case SettingsTab::Columns:
            next.ColumnSettings.Clear();
            AppendAll(At(controls, "List7").items, next.ColumnSettings);
            break;
        case SettingsTab::Network:
            TakeNet(controls, next);
            break;
    }
    return next;
}

SettingsTables TablesWithDefaults(SettingsTab tab, const SettingsControls& controls,
                                  const LineSources& from) {
    SettingsTables next = from.settings;
    switch (tab) {
        case SettingsTab::ImportExport:
            TakeDefaults(SettingsFile::ImEx, kDefaultImExSettings, controls, from, next.ImExSettings);
            AppendAll(kDefaultExportSequence, next.ImExSettings);
            Append(kEndExportFile, next.ImExSettings);
            AppendAll(kDefaultImportSequence, next.ImExSettings);
            Append(kEndImportFile, next.ImExSettings);
            break;
        case SettingsTab::DataAutomation:
            TakeDefaults(SettingsFile::Data, kDefaultDataSettings, controls, from, next.DataSettings);
            break;
        case SettingsTab::Graphics:
            TakeDefaults(SettingsFile::Graph, kDefaultGraphSettings, controls, from, next.GraphSettings);
            break;
        case SettingsTab::Columns:
            next.ColumnSettings.Clear();
            AppendAll(kDefaultColumns, next.ColumnSettings);
            break;
        case SettingsTab::Network:
            TakeDefaults(SettingsFile::Net, kDefaultNetSettings, controls, from, next.NetSettings);
            Append(kStartEod, next.NetSettings);
            AppendAll(kDefaultEodSequence, next.NetSettings);
            Append(kEndEod, next.NetSettings);
            Append(kStartHistory, next.NetSettings);
            AppendAll(kDefaultHistorySequence, next.NetSettings);
            Append(kEndHistory, next.NetSettings);
            break;
    }
    return next;
}

}  // namespace brantlow
