#include "screens/control_loading.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "screens/settings_store.h"

namespace brantlow {

namespace {

// More fields than the line of any source has; what a file without sense lists beyond is left out.
constexpr std::size_t kMostFields = 1000;

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
        controls[row.control].on = OptionFor(*row.line, TextOf(settings, *row.line)) == &row;
    }
}

void LoadChecks(const SettingsTables& settings, SettingsControls& controls) {
    for (const CheckRow& row : kCheckRows) {
        controls[row.control].on = Get(settings, row.line);
    }
    controls[kHistoryCheck].on = FetchesHistory(settings);
}

void LoadTexts(const SettingsTables& settings, SettingsControls& controls) {
    for (const TextRow& row : kTextRows) {
        controls[row.control].text = Get(settings, row.line);
    }
    controls["Combo1"].items.assign(kBrokerageAddresses.begin(), kBrokerageAddresses.end());
}

void LoadNumber(const NumberRow& row, const std::string& stored, SettingsControl& control) {
    for (int number = row.first; number <= row.last; ++number) {
        control.items.push_back(std::to_string(number));
    }
    const LineRow& line = *row.line.row;
    control.text = std::to_string(WholeBetween(stored, line.least, line.most).value_or(line.fallback));
    if (std::find(control.items.begin(), control.items.end(), control.text) == control.items.end()) {
        control.items.push_back(control.text);
    }
}

void LoadDropDowns(const SettingsTables& settings, SettingsControls& controls) {
    for (const NumberRow& row : kNumberRows) {
        LoadNumber(row, TextOf(settings, row.line), controls[row.control]);
    }
    for (const TimeRow& row : kTimeRows) {
        SettingsControl& control = controls[row.control];
        for (int number = 0; number <= row.line.row->most; ++number)
            control.items.push_back(TwoDigits(number));
        const auto number = Get(settings, row.line);
        if (number && controls["Option16"].on) control.text = TwoDigits(*number);
    }
    for (const DateFormRow& row : kDateFormRows) {
        SettingsControl& control = controls[row.control];
        control.items.assign(std::begin(kDateForms), std::end(kDateForms));
        control.text = kDateForms[static_cast<std::size_t>(Get(settings, row.line))];
    }
}

std::string ConditionName(std::size_t number) {
    return std::string(kConditionLine) + " " + std::to_string(number);
}

// "Condition 3" is offered to the side on which it reports, by the line behind its first.
void OfferConditions(const SettingsTable& selectorSettings, SettingsControls& controls) {
    bool begun = false;
    WalkConditionLines(selectorSettings, selectorSettings.Size(), [&](const ConditionLine& line) {
        for (const ConditionRow& row : kConditionRows) {
            if (!begun || line.block > kConditionCount || line.text != row.action) continue;
            controls[row.control].items.push_back(ConditionName(line.block));
        }
        begun = line.token == ConditionToken::Begin;
    });
}

bool NamesCondition(std::string_view text) {
    for (std::size_t number = 1; number <= kConditionCount; ++number) {
        if (text == ConditionName(number)) return true;
    }
    return false;
}

// A stored condition that reports something else by now is still the one chosen.
void LoadConditions(const SettingsTables& settings, SettingsControls& controls) {
    for (const ConditionRow& row : kConditionRows)
        controls[row.control].items = {std::string(kNoConditionWord)};
    OfferConditions(settings.SelectorSettings, controls);
    for (const ConditionRow& row : kConditionRows) {
        SettingsControl& control = controls[row.control];
        const std::string& stored = Get(settings, row.line);
        control.text = NamesCondition(stored) ? stored : std::string(kNoConditionWord);
        if (std::find(control.items.begin(), control.items.end(), control.text) == control.items.end()) {
            control.items.push_back(control.text);
        }
    }
}

std::vector<std::string> StoredNames(const ListRow& row, const SettingsTables& settings) {
    if (row.list) return FieldsOf(*row.list, settings);
    std::vector<std::string> series;
    for (std::size_t i = 1; i <= kChartSeries; ++i) series.push_back(TextOf(settings, ChartSeriesRow(i)));
    return series;
}

void LoadSelected(const ListRow& row, const SettingsTables& settings, SettingsControl& selected) {
    for (const std::string& name : StoredNames(row, settings)) {
        if (selected.items.size() >= kMostFields) break;
        const bool known = std::find(row.offered.begin(), row.offered.end(), name) != row.offered.end();
        if (row.kind == ListKind::Positions) {
            selected.items.emplace_back(known ? std::string_view(name) : kSkippedField);
        } else if (known && !HasItem(selected.items, name)) {
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
            if (name == kSkippedField || !HasItem(selected.items, name)) available.items.emplace_back(name);
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

const OptionRow* OptionFor(const LineRow& line, std::string_view text) {
    const bool years = &line == kHistoryYears.row;
    const auto known = ChoiceOf(line, text);
    if (!known && years) return nullptr;
    const std::size_t choice = known.value_or(line.Shown());
    for (const OptionRow& row : kOptionRows) {
        if (row.line == &line && row.choice == choice) return &row;
    }
    return nullptr;
}

const OptionRow* FindOption(std::string_view control) {
    for (const OptionRow& row : kOptionRows) {
        if (row.control == control) return &row;
    }
    return nullptr;
}

void TurnOn(const OptionRow& option, SettingsControls& controls) {
    for (const OptionRow& row : kOptionRows) {
        if (row.line == option.line) controls[row.control].on = &row == &option;
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
