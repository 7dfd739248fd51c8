// The controls of the settings dialog and the settings lines behind them, row by row. The dialog's logic
// (application_settings.h) reads and writes by these tables, its window takes words and names from them, the
// setup wizard offers the same hours, minutes and markets (acquire/hosts.h).
#pragma once

#include <array>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/pick_lists.h"
#include "screens/brokerage_addresses.h"
#include "shell/settings/settings_defaults.h"
#include "shell/settings/settings_files.h"

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

// By the controls' names.
using SettingsControls = std::map<std::string_view, SettingsControl>;

// How a control's value stands in its line.
enum class LineForm { Written, Number, Printed };

// An option button: `value` stands in the line while the option is on. Options of one line exclude each
// other. A line that holds no option's value does not act as any; the row marked so does what it then does,
// and is shown. The years have no such row: nothing is chosen then.
struct OptionRow {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
    std::string_view words;
    std::string_view value;
    bool whenUnknown = false;
    LineForm form = LineForm::Written;
};

inline constexpr std::array kOptionRows = {
    OptionRow{SettingsFile::ImEx, 1, "Option23", "Text Comma Delimited", "Comma Delimited", true},
    OptionRow{SettingsFile::ImEx, 1, "Option24", "Text Tab Delimited", "Tab Delimited"},
    OptionRow{SettingsFile::ImEx, 1, "Option26", "MetaStock 6", "MetaStock 6"},
    OptionRow{SettingsFile::ImEx, 1, "Option27", "MetaStock 7", "MetaStock 7"},
    OptionRow{SettingsFile::ImEx, 4, "Option33", "Text Comma Delimited", "Comma Delimited"},
    OptionRow{SettingsFile::ImEx, 4, "Option34", "Text Tab Delimited", "Tab Delimited", true},
    OptionRow{SettingsFile::ImEx, 4, "Option28", "MetaStock 6", "MetaStock 6"},
    OptionRow{SettingsFile::ImEx, 4, "Option31", "MetaStock 7", "MetaStock 7"},

    OptionRow{SettingsFile::Data, 1, "Option4", "Manually", "Manually", true},
    OptionRow{SettingsFile::Data, 1, "Option2", "Weekly", "Weekly"},
    OptionRow{SettingsFile::Data, 1, "Option3", "Monthly", "Monthly"},
    OptionRow{SettingsFile::Data, 6, "Option9", "2 Years", "2", false, LineForm::Number},
    OptionRow{SettingsFile::Data, 6, "Option10", "5 Years", "5", false, LineForm::Number},
    OptionRow{SettingsFile::Data, 6, "Option11", "10Years", "10", false, LineForm::Number},
    OptionRow{SettingsFile::Data, 6, "Option12", "20 Years", "20", false, LineForm::Number},
    OptionRow{SettingsFile::Data, 7, "Option29", "Automatic Save", "Automatic Save"},
    OptionRow{SettingsFile::Data, 7, "Option30", "Manual Save", "Manual Save", true},
    OptionRow{SettingsFile::Data, 8, "Option13", "Automatic Save", "Automatic Save"},
    OptionRow{SettingsFile::Data, 8, "Option6", "Manual Save", "Manual Save", true},
    OptionRow{SettingsFile::Data, 9, "Option16", "Auto Run:                   hh:mm", "EOD"},
    OptionRow{SettingsFile::Data, 9, "Option36", "Auto Data Collection Disabled", "None", true},
    OptionRow{SettingsFile::Data, 16, "Option20", "Automatic Run", "Automatic"},
    OptionRow{SettingsFile::Data, 16, "Option5", "Manual Run", "Manual", true},
    OptionRow{SettingsFile::Data, 19, "Option18", "Automatic Split", "Automatic"},
    OptionRow{SettingsFile::Data, 19, "Option19", "Manual Split", "Manual", true},

    OptionRow{SettingsFile::Graph, 1, "Option21", "High, Low, Close", "Default", true},
    OptionRow{SettingsFile::Graph, 1, "Option25", "Candle Stick", "CandleStick"},

    OptionRow{SettingsFile::Net, 1, "Option1", "Yahoo", "Yahoo", true},
    OptionRow{SettingsFile::Net, 1, "Option22", "NASDAQ", "NASDAQ"},
    OptionRow{SettingsFile::Net, 3, "Option7", "Yahoo", "Yahoo", true},
    OptionRow{SettingsFile::Net, 3, "Option8", "User Selected", "User Selected String"},
    OptionRow{SettingsFile::Net, 10, "Option14", "Comma Delimited", "Comma"},
    OptionRow{SettingsFile::Net, 10, "Option15", "Tab Delimited", "Tab", true},
};

struct CheckRow {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
    std::string_view words;
    std::string_view on;
    std::string_view off;
};

inline constexpr std::array kCheckRows = {
    CheckRow{SettingsFile::Data, 2, "Check1", "Back Up Application Files", "True", "False"},
    CheckRow{SettingsFile::Data, 4, "Check3", "Back Up Quote Database", "True", "False"},
    CheckRow{SettingsFile::Data, 12, "Check12", "Automatically Check for new Version Updates.",
             "Automatic Updates", "Manual Updates"},
    CheckRow{SettingsFile::Data, 14, "Check2", "Activate", "E-mail Alerts", "None"},
    CheckRow{SettingsFile::Data, 17, "Check4", "Access Quote Database on the LAN", "True", "False"},
};

// The years of history fetched for a new ticker, and the check box that stands for any of them.
inline constexpr std::size_t kHistoryYearsLine = 6;
constexpr bool IsYears(const OptionRow& row) {
    return row.file == SettingsFile::Data && row.line == kHistoryYearsLine;
}
inline constexpr std::string_view kHistoryCheck = "Check11";
inline constexpr std::string_view kHistoryCheckWords = "Update quote database when adding ticker symbol.";

struct TextRow {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
    LineForm form = LineForm::Written;
};

inline constexpr std::array kTextRows = {
    TextRow{SettingsFile::ImEx, 2, "Text7"},
    TextRow{SettingsFile::ImEx, 3, "Text21"},
    TextRow{SettingsFile::ImEx, 5, "Text8"},
    TextRow{SettingsFile::ImEx, 6, "Text31"},
    TextRow{SettingsFile::Data, 3, "Text2"},
    TextRow{SettingsFile::Data, 5, "Text3"},
    TextRow{SettingsFile::Data, 15, "Text1"},
    TextRow{SettingsFile::Data, 18, "Text4"},
    TextRow{SettingsFile::Net, 2, "Combo1"},
    TextRow{SettingsFile::Net, 4, "Text11", LineForm::Printed},
    TextRow{SettingsFile::Net, 5, "Text13", LineForm::Printed},
};

// A drop-down list of numbers. A whole number of the file between `least` and kMostRows is shown even where
// the list does not offer it; anything else reads as `whenUnknown`.
struct NumberRow {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
    int first;
    int last;
    int least;
    std::string_view whenUnknown;
    LineForm form;
};

inline constexpr std::array kNumberRows = {
    NumberRow{SettingsFile::ImEx, 7, "Combo7", 0, 15, 0, "0", LineForm::Number},
    NumberRow{SettingsFile::ImEx, 8, "Combo8", 0, 15, 0, "0", LineForm::Number},
    NumberRow{SettingsFile::Net, 6, "Combo6", 10, 15, 1, "15", LineForm::Printed},
    NumberRow{SettingsFile::Net, 7, "Combo11", 0, 15, 0, "0", LineForm::Printed},
    NumberRow{SettingsFile::Net, 8, "Combo12", 0, 15, 0, "0", LineForm::Printed},
};

// The hour and the minute of the daily run: two digits each, or nothing.
struct TimeRow {
    std::size_t line;  // of the data settings
    std::string_view control;
    int last;
};

inline constexpr std::array kTimeRows = {TimeRow{10, "Combo2", 23}, TimeRow{11, "Combo3", 59}};

// The date forms of a supplier's or an import file.
inline constexpr std::array<std::string_view, 4> kDateForms = {"01/02/04", "Jan-2-2004", "20040102",
                                                               "040102"};

struct DateFormRow {
    SettingsFile file;
    std::size_t line;
    std::string_view control;
};

inline constexpr std::array kDateFormRows = {DateFormRow{SettingsFile::ImEx, 9, "Combo10"},
                                             DateFormRow{SettingsFile::Net, 9, "Combo9"}};

// The chart's six variables and the conditions that mark buying and selling.
inline constexpr std::size_t kMostVariables = 6;
inline constexpr std::string_view kTooManyVariables = "Maximum of 6 Variables on Graphics";
inline constexpr std::string_view kNoCondition = "None";

struct ConditionRow {
    std::size_t line;  // of the graph settings while there are six variables
    std::string_view control;
    std::string_view action;
};

inline constexpr std::array kConditionRows = {ConditionRow{9, "Combo14", "Buy"},
                                              ConditionRow{10, "Combo15", "Sell"}};

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
    SettingsFile file;
    std::string_view selected;
    std::string_view available;
    std::string_view selectArrow;
    std::string_view returnArrow;
    std::span<const std::string_view> offered;
    ListKind kind;
};

inline constexpr std::array kListRows = {
    ListRow{SettingsFile::ImEx, "List2", "List1", "Command5", "Command6", kOfferedExportFields,
            ListKind::Names},
    ListRow{SettingsFile::ImEx, "List4", "List3", "Command9", "Command10", kOfferedImportFields,
            ListKind::Positions},
    ListRow{SettingsFile::Graph, "List5", "List6", "Command2", "Command3", kChartVariables, ListKind::Names},
    ListRow{SettingsFile::Columns, "List7", "List8", "Command14", "Command15", kDefaultColumns,
            ListKind::Names},
    ListRow{SettingsFile::Net, "List12", "List11", "Command25", "Command26", kOfferedSourceFields,
            ListKind::Positions},
    ListRow{SettingsFile::Net, "List16", "List15", "Command33", "Command34", kDefaultHistorySequence,
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
    PresetRow{"Option36", "Combo2", ""},        PresetRow{"Option36", "Combo3", ""},
    PresetRow{"Option7", "Combo6", "15"},       PresetRow{"Option7", "Combo11", "0"},
    PresetRow{"Option7", "Combo12", "0"},       PresetRow{"Option7", "Option14", ""},
    PresetRow{"Option7", "Combo9", "01/02/04"}, PresetRow{"Option8", "Combo11", "0"},
    PresetRow{"Option8", "Combo12", "0"},       PresetRow{"Option8", "Option14", ""},
    PresetRow{"Option8", "Combo9", "01/02/04"},
};

}  // namespace brantlow
