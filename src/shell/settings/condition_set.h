// The selector's ten conditions as their editor sees them, and their form in VTRSELset.ini: ten blocks one
// after the other, each the word "Condition", the action, the names one a line, the word "Value" and the
// texts of 38 value slots.
//
// The evaluator walks the same lines by itself (selector/evaluation.h).
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "shell/settings/condition_lines.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

struct Condition {
    // "Buy", "Sell" or "Hold": what a hit reports.
    std::string action{kConditionActions[0]};
    // Catalogue names in the order chosen; names that the catalogue does not know are kept.
    std::vector<std::string> names;
    // The text of a slot in use; empty for a slot that is not.
    std::array<std::string, kSlotCount> slots;

    bool operator==(const Condition&) const = default;
};

using ConditionSet = std::array<Condition, kConditionCount>;

// The conditions in every entry of `selectorSettings`, its SelectorLineCount notwithstanding. Lines before
// the first block, blocks after the tenth and slots after the 38th are passed over; blocks that are missing
// are empty and say "Buy".
ConditionSet ParseConditionSet(const SettingsTable& selectorSettings);

// The whole text of VTRSELset.ini. A condition's names end at its first empty one.
std::string FormatConditionSet(const ConditionSet& set);

}  // namespace brantlow
