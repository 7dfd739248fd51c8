// Characters that stand in no line for a person: those below the blank, and DEL.
#pragma once

#include <algorithm>
#include <string_view>

namespace brantlow {

// The same on machines whose characters have no sign.
constexpr bool IsControl(char c) {
    constexpr char kDelete = '\x7f';
    return static_cast<unsigned char>(c) < ' ' || c == kDelete;
}

constexpr bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), IsControl);
}

}  // namespace brantlow
