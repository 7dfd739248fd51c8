// What a test, or a block of tests, has come to. The run driver counts only True as a hit; Undecided means
// that nothing was tested.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brantlow {

enum class TestState : unsigned char { Undecided, True, False };

// The state as results and outputs hold it: "", "True" or "False".
constexpr std::string_view Word(TestState state) {
    switch (state) {
        case TestState::True:
            return "True";
        case TestState::False:
            return "False";
        case TestState::Undecided:
            break;
    }
    return "";
}

// The verdict on a test that was run: one that could not be computed (no value) passes.
constexpr TestState Judge(std::optional<bool> holds) {
    return holds.value_or(true) ? TestState::True : TestState::False;
}

// The conditions that hold at a bar: bit c - 1 for condition c, 1 to 10.
using BarVerdicts = std::uint16_t;
constexpr BarVerdicts VerdictOf(std::size_t condition) {
    return static_cast<BarVerdicts>(1U << (condition - 1));
}

}  // namespace brantlow
