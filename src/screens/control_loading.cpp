#include "screens/control_loading.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "screens/settings_store.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::size_t kFirstVariableLine = 3;
constexpr std::size_t kFirstExportLine = 10;
// More fields than the line of any source has; what a file without sense lists beyond is left out.
constexpr std::size_t kMostFields = 1000;

const SettingsTable& TableOf(SettingsFile file, const SettingsTables& settings) {
    return settings.*FormOf(file).table;
}

// The whole number that a text is, when it lies between the two.
std::optional<int> WholeBetween(std::string_view text, int least, int most) {
    const std::optional<double> number = WholeNumber(text);
    if (!number || *number < least || *number > most) return std::nullopt;
    const int whole = static_cast<int>(*number);
    if (whole != *number) return std::nullopt;
    return whole;
}

std::string TwoDigits(int number) {
    std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

void LoadOptions(const SettingsTables& settings, SettingsControls& controls) {
    for (const OptionRow& row : kOptionRows) {
        const std::string& text = TableOf(row.file, settings).Text(row.line);
        controls[row.control].on = OptionFor(row.file, row.line, text) == &row;
    }
}

void LoadChecks(const SettingsTables& settings, SettingsControls& controls) {
    for (const CheckRow& row : kCheckRows) {
        controls[row.control].on = TableOf(row.file, settings).Text(row.line) == row.on;
    }
    controls[kHistoryCheck].on = !settings.DataSettings.Text(kHistoryYearsLine).empty();
}

void LoadTexts(const SettingsTables& settings, SettingsControls& controls) {
    for (const TextRow& row : kTextRows) {
        controls[row.control].text = TableOf(row.file, settings).Text(row.line);
    }
    controls["Combo1"].items.assign(kBrokerageAddresses.begin(), kBrokerageAddresses.end());
}

void LoadNumber(const NumberRow& row, const std::string& stored, SettingsControl& control) {
    for (int number = row.first; number <= row.last; ++number) {
        control.items.push_back(std::to_string(number));
    }
    const auto number = WholeBetween(stored, row.least, static_cast<int>(kMostRows));
    control.text = number ? std::to_string(*number) : std::string(row.whenUnknown);
    if (std::find(control.items.begin(), control.items.end(), control.text) == control.items.end()) {
        control.items.push_back(control.text);
    }
}

void LoadDropDowns(const SettingsTables& settings, SettingsControls& controls) {
    for (const NumberRow& row : kNumberRows) {
        LoadNumber(row, TableOf(row.file, settings).Text(row.line), controls[row.control]);
    }
    for (const TimeRow& row : kTimeRows) {
        SettingsControl& control = controls[row.control];
        for (int number = 0; number <= row.last; ++number) control.items.push_back(TwoDigits(number));
        const auto number = WholeBetween(settings.DataSettings.Text(row.line), 0, row.last);
        if (number && controls["Option16"].on) control.text = TwoDigits(*number);
    }
    for (const DateFormRow& row : kDateFormRows) {
        SettingsControl& control = controls[row.control];
        control.items.assign(kDateForms.begin(), kDateForms.end());
        const std::string& stored = TableOf(row.file, settings).Text(row.line);
        const auto known = std::find(kDateForms.begin(), kDateForms.end(), stored);
        control.text = known == kDateForms.end() ? kDateForms.front() : *known;
    }
}

std::string ConditionName(std::size_t number) {
    return std::string(kConditionLine) + " " + std::to_string(number);
}

// "Condition 3" is offered to the side on which it reports.
void OfferConditions(const SettingsTable& selectorSettings, SettingsControls& controls) {
    std::size_t number = 0;
    for (std::size_t line = 1; line <= selectorSettings.Size() && number < kConditionCount; ++line) {
        if (selectorSettings.Text(line) != kConditionLine) continue;
        ++number;
        for (const ConditionRow& row : kConditionRows) {
            if (selectorSettings.Text(line + 1) != row.action) continue;
            controls[row.control].items.push_back(ConditionName(number));
        }
    }
}

bool NamesCondition(std::string_view text) {
    for (std::size_t number = 1; number <= kConditionCount; ++number) {
        if (text == ConditionName(number)) return true;
    }
    return false;
}

// A stored condition that reports something else by now is still the one chosen.
void LoadConditions(const SettingsTables& settings, SettingsControls& controls) {
    for (const ConditionRow& row : kConditionRows) controls[row.control].items = {std::string(kNoCondition)};
    OfferConditions(settings.SelectorSettings, controls);
    for (const ConditionRow& row : kConditionRows) {
        SettingsControl& control = controls[row.control];
        const std::string& stored = settings.GraphSettings.Text(row.line);
        control.text = NamesCondition(stored) ? stored : std::string(kNoCondition);
        if (std::find(control.items.begin(), control.items.end(), control.text) == control.items.end()) {
            control.items.push_back(control.text);
        }
    }
}

// The lines of a table that hold a list.
struct LineRange {
    std::size_t first = 1;
    std::size_t last = 0;
};

// An export sequence without its marker goes to the end of the table.
std::size_t LastExportLine(const SettingsTables& settings) {
    return settings.ImportFieldFirst > 2 ? settings.ImportFieldFirst - 2 : settings.ImExSettings.Size();
}

LineRange LinesOfList(std::string_view list, const SettingsTables& settings) {
    if (list == "List2") return {kFirstExportLine, LastExportLine(settings)};
    if (list == "List5") return {kFirstVariableLine, kFirstVariableLine + kMostVariables - 1};
    if (list == "List7") return {1, settings.ColumnCount};
    const bool isImport = list == "List4";
    const bool isEod = list == "List12";
    const LineRange net = isEod ? LineRange{settings.NetEodFirst, settings.NetEodLast}
                                : LineRange{settings.NetHistFirst, settings.NetHistLast};
    const LineRange range = isImport ? LineRange{settings.ImportFieldFirst, settings.ImportFieldLast} : net;
    // Without its first marker a sequence is none.
    return range.first == 0 ? LineRange{} : range;
}

bool Contains(const std::vector<std::string>& items, std::string_view name) {
    return std::find(items.begin(), items.end(), name) != items.end();
}

void LoadSelected(const ListRow& row, const SettingsTables& settings, SettingsControl& selected) {
    const LineRange range = LinesOfList(row.selected, settings);
    const SettingsTable& table = TableOf(row.file, settings);
    for (std::size_t line = range.first; line <= range.last && selected.items.size() < kMostFields; ++line) {
        const std::string& name = table.Text(line);
        const bool known = std::find(row.offered.begin(), row.offered.end(), name) != row.offered.end();
        if (row.kind == ListKind::Positions) {
            selected.items.emplace_back(known ? std::string_view(name) : kSkippedField);
        } else if (known && !Contains(selected.items, name)) {
            selected.items.push_back(name);
        }
    }
}

void LoadLists(const SettingsTables& settings, SettingsControls& controls) {
    for (const ListRow& row : kListRows) {
        SettingsControl& selected = controls[row.selected];
        LoadSelected(row, settings, selected);
        SettingsControl& available = controls[row.available];
        for (const std::string_view name : row.offered) {
            if (name == kSkippedField || !Contains(selected.items, name)) available.items.emplace_back(name);
        }
    }
}

void LoadMarket(const SettingsTables& settings, const Hosts& hosts, SettingsControls& controls) {
    const std::optional<std::size_t> chosen = ChosenMarket(hosts, settings);
    for (std::size_t i = 0; i < kMarkets.size(); ++i) controls[kMarkets[i].control].on = chosen == i;
}

// The quotes of the standard source have one form, whatever the file says of a supplier's.
void LoadStandardSource(SettingsControls& controls) {
    if (controls["Option7"].on) ApplyPresets("Option7", controls);
}

}  // namespace

const OptionRow* OptionFor(SettingsFile file, std::size_t line, std::string_view text) {
    const OptionRow* found = nullptr;
    for (const OptionRow& row : kOptionRows) {
        if (row.file != file || row.line != line) continue;
        if (row.value == text) return &row;
        if (row.whenUnknown) found = &row;
    }
    return found;
}

const OptionRow* FindOption(std::string_view control) {
    for (const OptionRow& row : kOptionRows) {
        if (row.control == control) return &row;
    }
    return nullptr;
}

void TurnOn(const OptionRow& option, SettingsControls& controls) {
    for (const OptionRow& row : kOptionRows) {
        if (row.file == option.file && row.line == option.line) controls[row.control].on = &row == &option;
    }
}

void ChooseNoYears(SettingsControls& controls) {
    for (const OptionRow& row : kOptionRows) {
        if (IsYears(row)) controls[row.control].on = false;
    }
}

void ApplyPresets(std::string_view option, SettingsControls& controls) {
    for (const PresetRow& row : kPresetRows) {
        if (row.option != option) continue;
        if (const OptionRow* other = FindOption(row.control)) {
            TurnOn(*other, controls);
        } else {
            controls[row.control].text = row.text;
        }
    }
}

void ApplyEnabling(SettingsControls& controls) {
    for (const EnablingRow& row : kEnablingRows) {
        controls[row.control].enabled = !row.whileOn.empty() && controls[row.whileOn].on;
    }
}

SettingsControls LoadControls(const SettingsTables& settings, const Hosts& hosts) {
    SettingsControls controls;
    LoadOptions(settings, controls);
    LoadChecks(settings, controls);
    LoadTexts(settings, controls);
    LoadDropDowns(settings, controls);
    LoadConditions(settings, controls);
    LoadLists(settings, controls);
    LoadMarket(settings, hosts, controls);
    LoadStandardSource(controls);
    ApplyEnabling(controls);
    return controls;
}

}  // namespace brantlow
