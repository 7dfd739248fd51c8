// The lines of VTRSELset.ini as all who walk them take them apart: the words that structure a set, and the
// block that a line belongs to. What a line of one kind means to the set, the evaluation, the signals, the
// summary and the editor differs and stays with them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "shell/settings/settings_tables.h"

namespace brantlow {

inline constexpr std::size_t kConditionCount = 10;
inline constexpr std::size_t kSlotCount = 38;

inline constexpr std::string_view kConditionLine = "Condition";
inline constexpr std::string_view kValueLine = "Value";
inline constexpr std::array<std::string_view, 3> kConditionActions = {"Buy", "Sell", "Hold"};

enum class ConditionToken : unsigned char {
    Begin,   // "Condition": a block begins
    Action,  // "Buy", "Sell" or "Hold"
    Values,  // "Value": slots follow
    Text,    // a name or the text of a slot
};

// What the text is wherever it stands, exactly as it is spelled.
ConditionToken TokenOf(std::string_view text);

struct ConditionLine {
    ConditionToken token;
    // How many blocks have begun, with this line: 0 before the first.
    std::size_t block;
    const std::string& text;
};

// Gives lines 1 to `count` of the set to `take` one after another.
template <class Take>
void WalkConditionLines(const SettingsTable& lines, std::size_t count, Take&& take) {
    std::size_t block = 0;
    for (std::size_t i = 1; i <= count; ++i) {
        const std::string& text = lines.Text(i);
        const ConditionToken token = TokenOf(text);
        if (token == ConditionToken::Begin) ++block;
        take(ConditionLine{token, block, text});
    }
}
// The lines that the file had when it was last read whole.
template <class Take>
void WalkConditionLines(const SettingsTables& tables, Take&& take) {
    WalkConditionLines(tables.SelectorSettings, tables.SelectorLineCount, take);
}

// The action of each block, from 1 on; empty where the lines last read have no such block or give it none.
std::array<std::string, kConditionCount + 1> ConditionActionsOf(const SettingsTables& tables);

}  // namespace brantlow
