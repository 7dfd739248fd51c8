#include "screens/selector_edits.h"

#include <algorithm>

#include "selector/value_slots.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostSteps = 200;

// The slot in which alone two panels differ.
std::optional<std::size_t> OnlySlot(const SelectorPanel& a, const SelectorPanel& b) {
    if (a.action != b.action || a.selected != b.selected || a.available != b.available) return std::nullopt;
    std::optional<std::size_t> only;
    for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
        if (a.slots[slot] == b.slots[slot]) continue;
        if (only) return std::nullopt;
        only = slot;
    }
    return only;
}

}  // namespace

bool SelectorEdits::GoesOn(const Step& step) const {
    if (steps_.empty() || !step.slot) return false;
    const Step& newest = steps_.back();
    return newest.panel == step.panel && newest.slot == step.slot && newest.what == step.what;
}

void SelectorEdits::Note(const SelectorPanels& panels, std::string what) {
    for (std::size_t i = 0; i < panels.size(); ++i) {
        if (panels[i] == last_[i]) continue;
        Step step{i, std::move(last_[i]), std::nullopt, what};
        step.slot = OnlySlot(step.before, panels[i]);
        last_[i] = panels[i];
        if (GoesOn(step)) continue;
        steps_.push_back(std::move(step));
    }
    if (steps_.size() > kMostSteps) steps_.erase(steps_.begin());
}

std::string SelectorEdits::Words() const {
    if (steps_.empty()) return {};
    const Step& step = steps_.back();
    return "Undo " + (step.what.empty() ? "edit of Condition " + std::to_string(step.panel + 1) : step.what);
}

std::optional<std::size_t> SelectorEdits::Undo(SelectorPanels& panels) {
    if (steps_.empty()) return std::nullopt;
    const std::size_t panel = steps_.back().panel;
    panels[panel] = std::move(steps_.back().before);
    last_[panel] = panels[panel];
    steps_.pop_back();
    return panel;
}

void CopyPanel(SelectorPanels& panels, std::size_t from, std::size_t to) {
    panels.at(to) = panels.at(from);
}

bool AreOther(const SelectorPanels& panels, const SelectorPanels& stored) {
    return !std::equal(
        panels.begin(), panels.end(), stored.begin(),
        [](const SelectorPanel& a, const SelectorPanel& b) { return ConditionOf(a) == ConditionOf(b); });
}

std::vector<std::string> LinesOf(const Condition& condition) {
    std::vector<std::string> lines = condition.names;
    for (std::size_t slot = 1; slot <= kSlotCount; ++slot)
        if (!condition.slots[slot - 1].empty())
            lines.push_back(std::string(ValueSlotLabel(slot)) + " " + condition.slots[slot - 1]);
    return lines;
}

}  // namespace brantlow
