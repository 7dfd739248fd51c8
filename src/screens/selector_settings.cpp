#include "screens/selector_settings.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "selector/catalogue.h"
#include "selector/test_table.h"
#include "selector/test_words.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

SelectorPanel PanelOf(const Condition& condition) {
    SelectorPanel panel;
    panel.action = condition.action;
    panel.selected = condition.names;
    panel.available.assign(ConditionNames().begin(), ConditionNames().end());
    for (const std::string& name : panel.selected) {
        const auto listed = std::find(panel.available.begin(), panel.available.end(), name);
        if (listed != panel.available.end()) panel.available.erase(listed);
    }
    for (std::size_t i = 0; i < kSlotCount; ++i) EnterSlotText(panel.slots[i], condition.slots[i]);
    return panel;
}

ConditionSet SetOf(const SelectorPanels& panels) {
    ConditionSet set;
    std::transform(panels.begin(), panels.end(), set.begin(), ConditionOf);
    return set;
}

Failure WriteSet(const ConditionSet& set, const SettingsChange& change, SettingsTables& settings) {
    return ApplySettingsText(SettingsFile::Selector, FormatConditionSet(set), change, settings);
}

bool MoveName(std::vector<std::string>& from, std::size_t entry, std::vector<std::string>& to) {
    if (entry >= from.size()) return false;
    const auto name = from.begin() + static_cast<std::ptrdiff_t>(entry);
    to.push_back(std::move(*name));
    from.erase(name);
    return true;
}

}  // namespace

SelectorPanels OpenPanels(const SettingsTable& selectorSettings) {
    const ConditionSet set = ParseConditionSet(selectorSettings);
    SelectorPanels panels;
    std::transform(set.begin(), set.end(), panels.begin(), PanelOf);
    return panels;
}

bool SelectName(SelectorPanel& panel, std::size_t entry) {
    return MoveName(panel.available, entry, panel.selected);
}

bool ReturnName(SelectorPanel& panel, std::size_t entry) {
    return MoveName(panel.selected, entry, panel.available);
}

void EnterSlotText(SelectorSlot& slot, std::string_view text) {
    slot = {std::string(text), !text.empty()};
}

Failure ApplyPanels(const SelectorPanels& panels, const Path& appPath, SettingsTables& settings) {
    const std::size_t walked = settings.SelectorLineCount;
    Failure fault = WriteSet(SetOf(panels), OrdinaryChange(appPath), settings);
    settings.SelectorLineCount = walked;
    return fault;
}

Failure ClearPanel(SelectorPanels& panels, std::size_t panel, const ChangePlace& place,
                   SettingsTables& settings) {
    SelectorPanels cleared = panels;
    cleared.at(panel).selected.clear();
    cleared.at(panel).slots = {};
    const SettingsChange change{place, "Clear of Condition " + std::to_string(panel + 1)};
    Failure fault = WriteSet(SetOf(cleared), change, settings);
    if (!fault) panels = std::move(cleared);
    return fault;
}

bool IsWholeSetInForce(const SelectorPanels& panels, const SettingsTables& settings) {
    SettingsTable walked;
    for (std::size_t i = 1; i <= settings.SelectorLineCount; ++i) {
        walked.Set(i, settings.SelectorSettings.At(i));
    }
    SettingsTable written;
    const std::string text = FormatConditionSet(SetOf(panels));
    LineReader reader(text);
    std::string_view line;
    for (std::size_t i = 1; reader.Next(line); ++i) written.Set(i, Value::Parse(line));
    return ParseConditionSet(walked) == ParseConditionSet(written);
}

Condition ConditionOf(const SelectorPanel& panel) {
    Condition condition{panel.action, panel.selected, {}};
    for (std::size_t i = 0; i < kSlotCount; ++i) {
        if (panel.slots[i].ticked) condition.slots[i] = panel.slots[i].text;
    }
    return condition;
}

std::string_view NameRemark(std::string_view name) {
    if (name.empty()) return "An empty line: it and the names below it are not stored.";
    const TestRow* const row = FindTestRow(name);
    if (row == nullptr) return "No test answers to this name: it is kept and decides nothing.";
    return RemarkText(row->remark);
}

std::string NameMeaning(std::string_view name) {
    const TestRow* const row = FindTestRow(name);
    if (row == nullptr) return {};
    return MeaningOf(row->test) + "\n" + FormulaOf(row->test);
}

std::string SlotRemark(std::string_view text) {
    if (TokenOf(text) != ConditionToken::Text) {
        return "This word has a meaning of its own in the file: the next opening will not find it here.";
    }
    if (text.empty() || WholeNumber(text)) return {};
    return "X is no number here and counts as " + ShortestNumber(LeadingNumber(text)) + ".";
}

bool PassesFilter(std::string_view name, std::string_view filter) {
    const std::string inName = UpperCase(name);
    const std::string words = UpperCase(filter);
    const std::vector<std::string_view> all = SplitAt(words, ' ');
    return std::all_of(all.begin(), all.end(),
                       [&](std::string_view word) { return inName.find(word) != std::string::npos; });
}

bool IsExactly(std::string_view name, std::string_view filter) {
    const std::size_t first = filter.find_first_not_of(' ');
    if (first == std::string_view::npos) return false;
    const std::size_t last = filter.find_last_not_of(' ');
    return UpperCase(name) == UpperCase(filter.substr(first, last - first + 1));
}

}  // namespace brantlow
