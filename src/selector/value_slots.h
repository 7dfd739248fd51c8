// The 38 numeric slots of a condition: their labels in the condition editor and what each compares with its
// number X. Labels say "> X" and "< X", but a value equal to X holds in both.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "indicators/analysis.h"
#include "selector/named_test.h"
#include "selector/test_state.h"
#include "shell/settings/condition_set.h"

namespace brantlow {

// One number that a slot looks at: an element at the bar or some bars before it, that of the oldest bar, or
// a value of the whole window.
struct Operand {
    StoredArray stored = nullptr;
    IndicatorArray computed = nullptr;
    WindowScalar scalar = nullptr;
    std::size_t back = 0;
    bool oldest = false;
};

// How a slot's value is made of its operands a, b, c and d.
enum class SlotForm : unsigned char {
    Plain,              // a
    AsText,             // a as its text reads, rounded to fifteen digits: a rise from 20 to 31 is 55
    ShareOfMean,        // a / b; passed over where b is 0
    Percent,            // a * 100 / b
    ChangeInPercent,    // (b - a) * 100 / a; passed over where a is 0
    FiveYearChange,     // 100 * (c / a - d / b); passed over where a or b is 0
    SlopeOverOldClose,  // a * 24000 / b; b lies `length` bars back
    SlopeOverClose,     // 24000 * a / b, for bars above `length`
};

struct ValueSlot {
    std::string_view label;
    Relation relation = Relation::AtLeast;
    SlotForm form = SlotForm::Plain;
    std::array<Operand, 4> operands = {};
    // The bars that the value needs behind it; 0 where it needs none.
    std::size_t length = 0;
};

// What a slot compares with its number.
struct SlotValue {
    enum class Outcome : unsigned char { Skipped, Failed, BelowGuard, Computed };
    Outcome outcome = Outcome::Skipped;
    double value = 0;
};

// A slot, 1 to 38, or null outside.
const ValueSlot* FindSlot(std::size_t slot);

// The label of a slot, 1 to 38; empty outside.
std::string_view ValueSlotLabel(std::size_t slot);

// The verdict of a slot with `x` as its number, at `bar`. Undecided where the slot's precondition is not met
// (an average volume of 0, for instance) and for a slot outside 1 to 38. A value that cannot be computed,
// such as one that looks back before element 0, is True; a guard that is part of the test makes it False.
TestState RunValueSlot(std::size_t slot, double x, const Analysis& analysis, std::size_t bar);

}  // namespace brantlow
