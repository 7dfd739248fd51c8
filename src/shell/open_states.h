// What stands open, as the enabling rules see it. The menu table of the main frame and the buttons above the
// quote table say by a sum of these when an entry or a button is there.
#pragma once

#include "shell/file_kind.h"

namespace brantlow {

// When an entry is enabled: a sum of these, one for each kind of open table, one for no table at all, and one
// for each active child that is no table.
using OpenStates = unsigned;
inline constexpr OpenStates kWithDdq = 1;
inline constexpr OpenStates kWithDb = 2;
inline constexpr OpenStates kWithDbe = 4;
inline constexpr OpenStates kWithEfq = 8;
inline constexpr OpenStates kWithOther = 16;
inline constexpr OpenStates kWithNothing = 32;
inline constexpr OpenStates kChartActive = 64;
inline constexpr OpenStates kBrowserActive = 128;
inline constexpr OpenStates kWithKind = kWithDdq | kWithDb | kWithDbe | kWithEfq;
inline constexpr OpenStates kWithTable = kWithKind | kWithOther;
inline constexpr OpenStates kWithPicture = kChartActive | kBrowserActive;
inline constexpr OpenStates kAlways = kWithTable | kWithNothing;

// The state while a table of this kind is open.
OpenStates StateOf(FileKind kind);

}  // namespace brantlow
