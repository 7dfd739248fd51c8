// A condition's lines as the condition editor writes them.
#pragma once

#include <string>
#include <vector>

#include "shell/settings/condition_set.h"

namespace brantlow {

using Lines = std::vector<std::string>;

// `slots` in front, the rest of the 38 empty.
inline Lines Block(const std::string& action, const Lines& names, Lines slots = {}) {
    Lines lines = {"Condition", action};
    lines.insert(lines.end(), names.begin(), names.end());
    lines.push_back("Value");
    slots.resize(kSlotCount);
    lines.insert(lines.end(), slots.begin(), slots.end());
    return lines;
}

}  // namespace brantlow
