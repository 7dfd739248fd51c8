// What the command palette offers for the words that are typed: the entries of the menu and the tickers of
// the open table, best first.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/frame/commands.h"

namespace brantlow {

struct PaletteRow {
    // Null for a ticker.
    const MenuEntry* command = nullptr;
    // The entry's words behind those of its menu ("File: Save As...", "Ticker: News"), or the ticker.
    std::string words;
};

// An entry's words without the marks of its letter.
std::string PlainWords(std::string_view words);

// What there is for commands to work on.
struct PaletteScene {
    bool hasTicker = false;  // an open table with a ticker that commands mean
    bool hasChart = false;   // in front
    bool hasChild = false;   // a window in the frame's area
};

// All entries that can be chosen and have something to work on, in the order of the menu. Left out are those
// that only make sense where they stand, such as the one that closes its menu, and the second of two that do
// the same.
std::vector<PaletteRow> PaletteCommands(const PaletteScene& scene,
                                        const std::function<bool(const MenuEntry&)>& isEnabled);

// Of `commands` and `tickers` those that hold every word of `typed`, in any case; those whose words begin so
// come first, then the others, tickers behind commands of the same rank; a ticker is found by its beginning.
// Nothing typed: all commands and no ticker. At most `most` of them.
std::vector<PaletteRow> PaletteMatches(const std::vector<PaletteRow>& commands,
                                       std::span<const std::string> tickers, std::string_view typed,
                                       std::size_t most);

}  // namespace brantlow
