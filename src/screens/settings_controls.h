// The controls of the settings dialog and the settings lines behind them, row by row. The dialog's logic
// (application_settings.h) reads and writes by these tables, its window takes words and names from them, the
// setup wizard offers the same hours, minutes and markets (acquire/hosts.h).
#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/pick_lists.h"
#include "screens/brokerage_addresses.h"
#include "shell/settings/condition_lines.h"
#include "shell/settings/field_lists.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_defaults.h"

namespace brantlow {

// The tabs by their index on TabStrip1.
enum class SettingsTab { ImportExport = 1, DataAutomation = 2, Graphics = 3, Columns = 4, Network = 5 };

struct TabRow {
    SettingsTab tab;
    std::string_view control;
    std::string_view caption;
    std::string_view toolTip;
};

inline constexpr std::array<TabRow, 5> kSettingsTabs = {{
    {SettingsTab::ImportExport, "Picture1", "Import / Export", "File Import / Export Settings"},
    {SettingsTab::DataAutomation, "Picture2", "Data & Automation Settings", ""},
    {SettingsTab::Graphics, "Picture3", "Graphics Display", "Graphics Display Settings"},
    {SettingsTab::Columns, "Picture4", "Grid Column Display", "Grid Column Display Settings"},
    {SettingsTab::Network, "Picture5", "Network and Web Settings", "Quote and Web Settings"},
}};

// What a control shows. Text is bytes, as the files hold it.
struct SettingsControl {
    bool enabled = true;
    bool on = false;                 // of an option or a check box
    std::string text;                // of a text box or a drop-down list
    std::vector<std::string> items;  // of a list, or those that a drop-down list offers
};

inline bool HasItem(const std::vector<std::string>& items, std::string_view name) {
    return std::find(items.begin(), items.end(), name) != items.end();
}

// By the controls' names.
using SettingsControls = std::map<std::string_view, SettingsControl>;

// An option button: the choice of its line that stands there while the option is on. Options of one line
// exclude each other. For a text that is none of the choices the one is shown that the line's row says; of
// the years none is.
struct OptionRow {
    const LineRow* line;
    std::string_view control;
    std::string_view words;
    std::size_t choice;

    constexpr std::string_view Value() const { return line->choices[choice]; }
};

inline constexpr std::array kOptionRows = {
    OptionRow{kExportType.row, "Option23", "Text Comma Delimited", 0},
    OptionRow{kExportType.row, "Option24", "Text Tab Delimited", 1},
    OptionRow{kExportType.row, "Option26", "MetaStock 6", 2},
    OptionRow{kExportType.row, "Option27", "MetaStock 7", 3},
    OptionRow{kImportType.row, "Option33", "Text Comma Delimited", 0},
    OptionRow{kImportType.row, "Option34", "Text Tab Delimited", 1},
    OptionRow{kImportType.row, "Option28", "MetaStock 6", 2},
    OptionRow{kImportType.row, "Option31", "MetaStock 7", 3},

    OptionRow{kBackUpFrequency.row, "Option4", "Manually", 0},
    OptionRow{kBackUpFrequency.row, "Option2", "Weekly", 1},
    OptionRow{kBackUpFrequency.row, "Option3", "Monthly", 2},
    OptionRow{kHistoryYears.row, "Option9", "2 Years", 0},
    OptionRow{kHistoryYears.row, "Option10", "5 Years", 1},
    OptionRow{kHistoryYears.row, "Option11", "10Years", 2},
    OptionRow{kHistoryYears.row, "Option12", "20 Years", 3},
    OptionRow{kSavesTable.row, "Option29", "Automatic Save", 0},
    OptionRow{kSavesTable.row, "Option30", "Manual Save", 1},
    OptionRow{kStoresInDatabase.row, "Option13", "Automatic Save", 0},
    OptionRow{kStoresInDatabase.row, "Option6", "Manual Save", 1},
    OptionRow{kCollection.row, "Option16", "Auto Run:                   hh:mm", 0},
    OptionRow{kCollection.row, "Option36", "Auto Data Collection Disabled", 1},
    OptionRow{kRunsSelector.row, "Option20", "Automatic Run", 0},
    OptionRow{kRunsSelector.row, "Option5", "Manual Run", 1},
    OptionRow{kAdjustsSplits.row, "Option18", "Automatic Split", 0},
    OptionRow{kAdjustsSplits.row, "Option19", "Manual Split", 1},

    OptionRow{kChartStyle.row, "Option21", "High, Low, Close", 0},
    OptionRow{kChartStyle.row, "Option25", "Candle Stick", 1},

    OptionRow{kWebContent.row, "Option1", "Yahoo", 0},
    OptionRow{kWebContent.row, "Option22", "NASDAQ", 1},
    OptionRow{kQuoteSource.row, "Option7", "Yahoo", 0},
    OptionRow{kQuoteSource.row, "Option8", "User Selected", 1},
    OptionRow{kSourceDelimiter.row, "Option14", "Comma Delimited", 0},
    OptionRow{kSourceDelimiter.row, "Option15", "Tab Delimited", 1},
};

struct CheckRow {
    FlagLine line;
    std::string_view control;
    std::string_view words;
};

inline constexpr std::array kCheckRows = {
    CheckRow{kBacksUpApplication, "Check1", "Back Up Application Files"},
    CheckRow{kBacksUpDatabase, "Check3", "Back Up Quote Database"},
    CheckRow{kChecksForUpdates, "Check12", "Automatically Check for new Version Updates."},
    CheckRow{kSendsAlerts, "Check2", "Activate"},
    CheckRow{kDatabaseIsElsewhere, "Check4", "Access Quote Database on the LAN"},
};

// The years of history fetched for a new ticker, and the check box that stands for any of them.
constexpr bool IsYears(const OptionRow& row) {
    return row.line == kHistoryYears.row;
}
inline constexpr std::string_view kHistoryCheck = "Check11";
inline constexpr std::string_view kHistoryCheckWords = "Update quote database when adding ticker symbol.";

struct TextRow {
    TextLine line;
    std::string_view control;
};

inline constexpr std::array kTextRows = {
    TextRow{kExportFolder, "Text7"},
    TextRow{kExportName, "Text21"},
    TextRow{kImportFolder, "Text8"},
    TextRow{kImportName, "Text31"},
    TextRow{kApplicationBackUpFolder, "Text2"},
    TextRow{kDatabaseBackUpFolder, "Text3"},
    TextRow{kAlertAddress, "Text1"},
    TextRow{kDatabaseFolder, "Text4"},
    TextRow{kBrokerage, "Combo1"},
    TextRow{kQuoteTemplate, "Text11"},
    TextRow{kHistoryTemplate, "Text13"},
};

// A drop-down list of the numbers from `first` to `last`. Another whole number of the line's range is shown
// too where the file holds it; anything else reads as the row's fallback.
struct NumberRow {
    NumberLine line;
    std::string_view control;
    int first;
    int last;
};

inline constexpr std::array kNumberRows = {
    NumberRow{kImportHeader, "Combo7", 0, 15},      NumberRow{kImportFooter, "Combo8", 0, 15},
    NumberRow{kQuotesPerRequest, "Combo6", 10, 15}, NumberRow{kSourceHeader, "Combo11", 0, 15},
    NumberRow{kSourceFooter, "Combo12", 0, 15},
};

// The hour and the minute of the daily run: two digits each, or nothing.
struct TimeRow {
    TimeLine line;
    std::string_view control;
};

inline constexpr std::array kTimeRows = {TimeRow{kCollectionHour, "Combo2"},
                                         TimeRow{kCollectionMinute, "Combo3"}};

// The date forms of a supplier's or an import file.
struct DateFormRow {
    ChoiceLine<DateForm> line;
    std::string_view control;
};

inline constexpr std::array kDateFormRows = {DateFormRow{kImportDateForm, "Combo10"},
                                             DateFormRow{kSourceDateForm, "Combo9"}};

// The chart's six variables and the conditions that mark buying and selling.
inline constexpr std::string_view kTooManyVariables = "Maximum of 6 Variables on Graphics";

struct ConditionRow {
    TextLine line;
    std::string_view control;
    std::string_view action;
};

inline constexpr std::array kConditionRows = {ConditionRow{kBuyCondition, "Combo14", kConditionActions[0]},
                                              ConditionRow{kSellCondition, "Combo15", kConditionActions[1]}};

// The chart's series but for the price itself, which is always drawn.
inline constexpr std::span<const std::string_view> kChartVariables = std::span(kPriceSeriesItems).subspan(1);

// The field that stands for one to be skipped. It can be chosen any number of times.
inline constexpr std::string_view kSkippedField = "Variable";

// Every field that a source's reply can hold.
inline constexpr std::size_t kSourceFields = kDefaultEodSequence.size() + 2;
inline constexpr std::array<std::string_view, kSourceFields> kOfferedSourceFields = [] {
    std::array<std::string_view, kSourceFields> fields{};
    for (std::size_t i = 0; i < kDefaultEodSequence.size(); ++i) fields[i] = kDefaultEodSequence[i];
    fields[kSourceFields - 2] = "Change (%)";
    fields[kSourceFields - 1] = kSkippedField;
    return fields;
}();

// An import computes the change in per cent itself.
inline constexpr std::array<std::string_view, kDefaultEodSequence.size() + 1> kOfferedImportFields = [] {
    std::array<std::string_view, kDefaultEodSequence.size() + 1> fields{};
    for (std::size_t i = 0; i < kDefaultEodSequence.size(); ++i) fields[i] = kDefaultEodSequence[i];
    fields[kDefaultEodSequence.size()] = kSkippedField;
    return fields;
}();

inline constexpr std::array<std::string_view, kDefaultColumns.size() + 1> kOfferedExportFields = [] {
    std::array<std::string_view, kDefaultColumns.size() + 1> fields{};
    fields[0] = kTickerColumn;
    for (std::size_t i = 0; i < kDefaultColumns.size(); ++i) fields[i + 1] = kDefaultColumns[i];
    return fields;
}();

// What a name that the list does not offer means in a stored list.
enum class ListKind {
    Names,     // nothing, as a name that stands there twice: it is left out
    Positions  // a field to be skipped: each entry stands for one field of a line
};

// A list of what is chosen, in order, beside one of what is left, with an arrow either way.
struct ListRow {
    std::optional<FieldList> list;  // nothing for the chart's series
    std::string_view selected;
    std::string_view available;
    std::string_view selectArrow;
    std::string_view returnArrow;
    std::span<const std::string_view> offered;
    ListKind kind;
};

inline constexpr std::array kListRows = {
    ListRow{FieldList::Export, "List2", "List1", "Command5", "Command6", kOfferedExportFields,
            ListKind::Names},
    ListRow{FieldList::Import, "List4", "List3", "Command9", "Command10", kOfferedImportFields,
            ListKind::Positions},
    ListRow{std::nullopt, "List5", "List6", "Command2", "Command3", kChartVariables, ListKind::Names},
    ListRow{FieldList::Columns, "List7", "List8", "Command14", "Command15", kDefaultColumns, ListKind::Names},
    ListRow{FieldList::SourceQuotes, "List12", "List11", "Command25", "Command26", kOfferedSourceFields,
            ListKind::Positions},
    ListRow{FieldList::SourceHistory, "List16", "List15", "Command33", "Command34", kDefaultHistorySequence,
            ListKind::Positions},
};

// What a label tells while a choice is not complete.
struct NoteRow {
    std::string_view label;
    std::string_view words;
};

inline constexpr NoteRow kTimeNote = {"lblTimeNote", "Choose an hour and a minute."};
inline constexpr NoteRow kYearsNote = {"lblYearsNote", "Choose the number of years."};
inline constexpr NoteRow kVariablesNote = {
    "lblVariablesNote", "With fewer than six variables the Buy and Sell conditions have no effect."};

// A control that can be used only while another one is on; without another one it never can.
struct EnablingRow {
    std::string_view control;
    std::string_view whileOn;
};

inline constexpr std::array kEnablingRows = {
    EnablingRow{"Option26", ""},         EnablingRow{"Option27", ""},
    EnablingRow{"Option28", ""},         EnablingRow{"Option31", ""},
    EnablingRow{"Combo2", "Option16"},   EnablingRow{"Combo3", "Option16"},
    EnablingRow{"Drive1", "Check1"},     EnablingRow{"Dir3", "Check1"},
    EnablingRow{"Text2", "Check1"},      EnablingRow{"Drive2", "Check3"},
    EnablingRow{"Dir4", "Check3"},       EnablingRow{"Text3", "Check3"},
    EnablingRow{"Drive3", "Check4"},     EnablingRow{"Dir5", "Check4"},
    EnablingRow{"Text4", "Check4"},      EnablingRow{"Text1", "Check2"},
    EnablingRow{"Option9", "Check11"},   EnablingRow{"Option10", "Check11"},
    EnablingRow{"Option11", "Check11"},  EnablingRow{"Option12", "Check11"},
    EnablingRow{"Combo6", "Option8"},    EnablingRow{"Combo11", "Option8"},
    EnablingRow{"Combo12", "Option8"},   EnablingRow{"Combo9", "Option8"},
    EnablingRow{"Option14", "Option8"},  EnablingRow{"Option15", "Option8"},
    EnablingRow{"List11", "Option8"},    EnablingRow{"List12", "Option8"},
    EnablingRow{"Command25", "Option8"}, EnablingRow{"Command26", "Option8"},
    EnablingRow{"List15", "Option8"},    EnablingRow{"List16", "Option8"},
    EnablingRow{"Command33", "Option8"}, EnablingRow{"Command34", "Option8"},
    EnablingRow{"Text11", "Option8"},    EnablingRow{"Text13", "Option8"},
};

// What choosing an option puts into other controls.
struct PresetRow {
    std::string_view option;
    std::string_view control;
    std::string_view text;  // of an option: to be chosen
};

inline constexpr std::array kPresetRows = {
    PresetRow{"Option36", "Combo2", ""},           PresetRow{"Option36", "Combo3", ""},
    PresetRow{"Option7", "Combo6", "15"},          PresetRow{"Option7", "Combo11", "0"},
    PresetRow{"Option7", "Combo12", "0"},          PresetRow{"Option7", "Option14", ""},
    PresetRow{"Option7", "Combo9", kDateForms[0]}, PresetRow{"Option8", "Combo11", "0"},
    PresetRow{"Option8", "Combo12", "0"},          PresetRow{"Option8", "Option14", ""},
    PresetRow{"Option8", "Combo9", kDateForms[0]},
};

}  // namespace brantlow
