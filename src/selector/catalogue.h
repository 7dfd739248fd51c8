// The fixed vocabulary of the stock selector: the names of its tests in display order. The condition editor
// lists them, the batch tool prints them, and the settings file stores them; what each one tests is in
// test_table.h.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace brantlow {

inline constexpr std::size_t kConditionNameCount = 488;

// All names, in the order in which they are listed.
std::span<const std::string_view> ConditionNames();

}  // namespace brantlow
