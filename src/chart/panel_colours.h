// The colours of what the panels draw beside their series (series_tables.h has those of the series). The
// paint routines put them into the drawing lists, and the palettes know by them what a line is.
#pragma once

#include "base/rgb.h"

namespace brantlow {

// Sides of a candle's body.
inline constexpr Rgb kFallingBody = {100, 10, 10};
inline constexpr Rgb kRisingBody = {10, 100, 10};
// Signals and alarms.
inline constexpr Rgb kBuyMark = {50, 150, 50};
inline constexpr Rgb kSellMark = {150, 50, 50};
inline constexpr Rgb kAlarmMark = {250, 150, 0};
// The line that marks a press.
inline constexpr Rgb kCursorColour = {0, 100, 0};

// The black of a study's levels and plain bars.
inline constexpr Rgb kNearBlack = {1, 1, 1};
// A study's rising and falling bars, and the sign bars' own pair.
inline constexpr Rgb kStudyUp = {1, 150, 1};
inline constexpr Rgb kStudyDown = {150, 10, 10};
inline constexpr Rgb kStudyPositive = {10, 150, 10};
inline constexpr Rgb kStudyNegative = {150, 1, 1};

// The volume of a day that closed higher or lower than the one before.
inline constexpr Rgb kVolumeUp = {10, 150, 10};
inline constexpr Rgb kVolumeDown = {150, 10, 10};

}  // namespace brantlow
