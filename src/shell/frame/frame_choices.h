// The choices of the View menu that last: each an entry of the menu and a key of the per-user store. An
// installation that was made before a choice existed goes on as it was, with the choice off.
#pragma once

#include <array>
#include <string_view>
#include <system_error>

#include "base/files.h"

namespace brantlow {

struct FrameChoice {
    std::string_view command;
    std::string_view key;     // in the section "Settings": "True" or "False"
    bool isOnWhenNew = true;  // in a new installation
};

inline constexpr FrameChoice kRemembersWindowSize{"mnuViewRememberWindowSize", "RememberWindowSize"};
// Off, a double click on a cell sorts by its column, as one on a header does always.
inline constexpr FrameChoice kDoubleClickCharts{"mnuViewDoubleClickChart", "DoubleClickOpensChart"};

// On, the start picture goes when the table is there; off, after three seconds.
inline constexpr FrameChoice kOpensWithoutWaiting{"mnuViewOpenWithoutWaiting", "OpenWithoutWaiting", false};

inline constexpr std::array kFrameChoices = {kRemembersWindowSize, kDoubleClickCharts, kOpensWithoutWaiting};

// Whether an installation was closed once.
bool WasClosedOnce(const Path& storeFile);

// A key of that section that is on or off; `byDefault` where it is missing.
bool LoadFrameFlag(const Path& storeFile, std::string_view key, bool byDefault);
std::error_code SaveFrameFlag(const Path& storeFile, std::string_view key, bool on);

bool LoadFrameChoice(const Path& storeFile, const FrameChoice& choice);
std::error_code SaveFrameChoice(const Path& storeFile, const FrameChoice& choice, bool on);

}  // namespace brantlow
