// The 38 numeric slots of a condition: their labels in the condition editor and what each compares with its
// number X. Labels say "> X" and "< X", but a value equal to X holds in both.
#pragma once

#include <cstddef>
#include <string_view>

#include "indicators/analysis.h"
#include "selector/test_state.h"
#include "shell/settings/condition_set.h"

namespace brantlow {

// The label of a slot, 1 to 38; empty outside.
std::string_view ValueSlotLabel(std::size_t slot);

// The verdict of a slot with `x` as its number, at `bar`. Undecided where the slot's precondition is not met
// (an average volume of 0, for instance) and for a slot outside 1 to 38. A value that cannot be computed,
// such as one that looks back before element 0, is True; a guard that is part of the test makes it False.
TestState RunValueSlot(std::size_t slot, double x, const Analysis& analysis, std::size_t bar);

}  // namespace brantlow
