#include "screens/control_lines.h"

#include <algorithm>
#include <optional>

#include "acquire/web/hosts.h"
#include "screens/control_loading.h"
#include "screens/settings_store.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

const SettingsControl& At(const SettingsControls& controls, std::string_view name) {
    return controls.at(name);
}

// Every line of the file that one control stands for.
void TakeSingleLines(SettingsFile file, const SettingsControls& controls, SettingsTables& next) {
    const auto take = [&](const LineRow& line, std::string_view text) {
        if (line.file == file) SetText(next, line, text);
    };
    for (const OptionRow& row : kOptionRows) {
        if (At(controls, row.control).on) take(*row.line, row.Value());
    }
    for (const CheckRow& row : kCheckRows) {
        take(*row.line.row, row.line.row->choices[At(controls, row.control).on ? 0 : 1]);
    }
    for (const TextRow& row : kTextRows) take(*row.line.row, At(controls, row.control).text);
    for (const NumberRow& row : kNumberRows) take(*row.line.row, At(controls, row.control).text);
    for (const DateFormRow& row : kDateFormRows) take(*row.line.row, At(controls, row.control).text);
    for (const TimeRow& row : kTimeRows) take(*row.line.row, At(controls, row.control).text);
}

void Append(std::string_view text, SettingsTable& table) {
    table.Set(table.Size() + 1, Value::OfText(text));
}

template <class Names>
void AppendAll(const Names& names, SettingsTable& table) {
    for (const auto& name : names) Append(name, table);
}

bool AnyYearsChosen(const SettingsControls& controls) {
    return std::any_of(kOptionRows.begin(), kOptionRows.end(),
                       [&](const OptionRow& row) { return IsYears(row) && At(controls, row.control).on; });
}

void TakeData(const SettingsControls& controls, const LineSources& from, SettingsTables& next) {
    TakeSingleLines(SettingsFile::Data, controls, next);
    if (!At(controls, kHistoryCheck).on || !AnyYearsChosen(controls)) SetText(next, *kHistoryYears.row, "");
    // A value that is no day was never one of a back-up.
    Set(next, kLastBackUp, Get(next, kLastBackUp).value_or(from.today));
    const bool elsewhere = At(controls, "Check4").on;
    SetDatabasePlace(elsewhere ? std::optional(At(controls, "Text4").text) : std::nullopt, from.appPath,
                     next);
}

// With fewer than six series the lines behind them move up.
void TakeGraph(const SettingsControls& controls, SettingsTables& next) {
    next.GraphSettings.Clear();
    TakeSingleLines(SettingsFile::Graph, controls, next);
    Append(kPriceName, next.GraphSettings);
    AppendAll(At(controls, "List5").items, next.GraphSettings);
    for (const ConditionRow& row : kConditionRows) Append(At(controls, row.control).text, next.GraphSettings);
}

void TakeNet(const SettingsControls& controls, SettingsTables& next) {
    SettingsTable& table = next.NetSettings;
    table.Clear();
    TakeSingleLines(SettingsFile::Net, controls, next);
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

void TakeImEx(const SettingsControls& controls, SettingsTables& next) {
    SettingsTable& table = next.ImExSettings;
    table.Clear();
    TakeSingleLines(SettingsFile::ImEx, controls, next);
    AppendAll(At(controls, "List2").items, table);
    Append(kEndExportFile, table);
    AppendAll(At(controls, "List4").items, table);
    Append(kEndImportFile, table);
}

// The control that shows the line's text, empty for a line without one.
std::string_view ControlOf(const LineRow& line) {
    for (const TextRow& row : kTextRows) {
        if (row.line.row == &line) return row.control;
    }
    for (const ConditionRow& row : kConditionRows) {
        if (row.line.row == &line) return row.control;
    }
    return {};
}

// A kept line of options holds one of their values afterwards.
std::string_view KeptText(const LineRow& line, const SettingsTables& settings) {
    const std::string& text = TextOf(settings, line);
    const OptionRow* option = OptionFor(line, text);
    return option ? option->Value() : std::string_view(text);
}

void TakeDefaults(SettingsFile file, const SettingsControls& controls, const LineSources& from,
                  SettingsTables& next) {
    (next.*FormOf(file).table).Clear();
    for (const LineRow& line : kLineRows) {
        if (line.file != file) continue;
        switch (line.reset) {
            case LineReset::Standard:
                SetText(next, line, line.standard);
                break;
            case LineReset::Keep:
                SetText(next, line, KeptText(line, from.settings));
                break;
            case LineReset::KeepShown:
                SetText(next, line, At(controls, ControlOf(line)).text);
                break;
            case LineReset::Today:
                Set(next, kLastBackUp, from.today);
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
            TakeImEx(controls, next);
            break;
        case SettingsTab::DataAutomation:
            TakeData(controls, from, next);
            break;
        case SettingsTab::Graphics:
            TakeGraph(controls, next);
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
            TakeDefaults(SettingsFile::ImEx, controls, from, next);
            AppendAll(kDefaultExportSequence, next.ImExSettings);
            Append(kEndExportFile, next.ImExSettings);
            AppendAll(kDefaultImportSequence, next.ImExSettings);
            Append(kEndImportFile, next.ImExSettings);
            break;
        case SettingsTab::DataAutomation:
            TakeDefaults(SettingsFile::Data, controls, from, next);
            break;
        case SettingsTab::Graphics:
            TakeDefaults(SettingsFile::Graph, controls, from, next);
            break;
        case SettingsTab::Columns:
            next.ColumnSettings.Clear();
            AppendAll(kDefaultColumns, next.ColumnSettings);
            break;
        case SettingsTab::Network:
            TakeDefaults(SettingsFile::Net, controls, from, next);
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
