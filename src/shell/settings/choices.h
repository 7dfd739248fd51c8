// What the settings choose, in words: the one place where the engine and the windows ask what a line decides.
#pragma once

#include <cstdint>

#include "shell/settings/lines.h"

namespace brantlow {

// Whether a ticker whose download failed keeps the history that is stored; without the file that says so it
// loses it.
inline bool KeepsHistoryOnFailure(const SettingsTables& tables) {
    return Get(tables, kKeepsHistory);
}

// How much is kept for undoing: the newest changes, and no more bytes of them than these.
struct UndoLimits {
    int changes;
    std::uintmax_t bytes;
};

inline UndoLimits UndoLimitsOf(const SettingsTables& tables) {
    constexpr std::uintmax_t kBytesOfMegabyte = 1024 * 1024;
    return {Get(tables, kUndoChanges),
            static_cast<std::uintmax_t>(Get(tables, kUndoMegabytes)) * kBytesOfMegabyte};
}

}  // namespace brantlow
