#include "shell/settings/condition_lines.h"

#include <algorithm>

namespace brantlow {

ConditionToken TokenOf(std::string_view text) {
    if (text == kConditionLine) return ConditionToken::Begin;
    if (text == kValueLine) return ConditionToken::Values;
    const bool isAction =
        std::find(kConditionActions.begin(), kConditionActions.end(), text) != kConditionActions.end();
    return isAction ? ConditionToken::Action : ConditionToken::Text;
}

std::array<std::string, kConditionCount + 1> ConditionActionsOf(const SettingsTables& tables) {
    std::array<std::string, kConditionCount + 1> actions;
    WalkConditionLines(tables, [&](const ConditionLine& line) {
        if (line.token == ConditionToken::Action && line.block <= kConditionCount) {
            actions[line.block] = line.text;
        }
    });
    return actions;
}

}  // namespace brantlow
