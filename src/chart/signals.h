// The signal overlay: on which bars of the chart the condition chosen for buying, and the one chosen for
// selling, held. The price panel marks the changes, the back-test trades on them.
//
// The tests are the selector's (selector/evaluation.h), asked about every bar instead of the newest one; the
// walk over the settings is not: one block only, its action must be the side's own word, and a test that
// cannot be run at a bar makes that bar "False".
#pragma once

#include <cstddef>
#include <string_view>

#include "chart/chart_session.h"
#include "indicators/analysis.h"
#include "shell/settings/condition_lines.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// One side of the overlay.
struct SignalSide {
    // The action that the chosen block must have.
    std::string_view action;
    // The setting that chooses the block: "Condition " and its number; "None", or nothing in a file that ends
    // before it, chooses none.
    TextLine setting;
};

inline constexpr SignalSide kBuySide = {kConditionActions[0], kBuyCondition};
inline constexpr SignalSide kSellSide = {kConditionActions[1], kSellCondition};

// Whether a condition is chosen for the side. Only then is its signal computed.
bool HasCondition(const SettingsTables& settings, const SignalSide& side);
// Only then are signals marked and traded on.
bool HasBothConditions(const SettingsTables& settings);

// Fills elements 1 to BarCount of the session's BuySignal with "True" or "False", after the indicators are
// computed. They are "" where the settings hold no such block, where its action is another one, where it has
// no line to test, and on a window of three bars or fewer, for which no indicators are computed. The walk
// starts over with each call.
void ComputeBuySignals(const SettingsTables& settings, const Analysis& analysis, ChartSession& session);
// The same for SellSignal.
void ComputeSellSignals(const SettingsTables& settings, const Analysis& analysis, ChartSession& session);

}  // namespace brantlow
