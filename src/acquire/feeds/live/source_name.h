// How a live source may be named: its definition's file, its keys and its turns bear the name.
#pragma once

#include <algorithm>
#include <string_view>

namespace brantlow {

// Small letters, digits and hyphens, none of them in front; at most 40.
inline bool IsSourceName(std::string_view name) {
    constexpr std::size_t kLongestName = 40;
    return !name.empty() && name.size() <= kLongestName && name.front() != '-' &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; });
}

}  // namespace brantlow
