// Settings for tests of the signals and of what trades on them.
#pragma once

#include <string>
#include <vector>

#include "chart/chart_session.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_tables.h"
#include "support/condition_block.h"

namespace brantlow {

// The slots of a block with one of them filled.
inline Lines Slot(std::size_t slot, const std::string& text) {
    Lines slots(kSlotCount);
    slots[slot - 1] = text;
    return slots;
}

inline Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// These lines as VTRSELset.ini, with the chart's two choices.
inline SettingsTables SignalSettings(const Lines& lines, const std::string& buy, const std::string& sell) {
    SettingsTables settings;
    for (std::size_t i = 0; i < lines.size(); ++i)
        settings.SelectorSettings.Set(i + 1, Value::OfText(lines[i]));
    settings.SelectorLineCount = lines.size();
    Set(settings, kBuyCondition, buy);
    Set(settings, kSellCondition, sell);
    return settings;
}

}  // namespace brantlow
