#include "shell/frame/palette_rows.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace brantlow {

namespace {

// The menu under a right-click is known by what it works on.
constexpr std::string_view kPopUpMenu = "mnuPopUp";
constexpr std::string_view kPopUpWords = "Ticker";

// What an entry, or each entry of a menu, needs; null where the palette never offers it.
struct PaletteRule {
    std::string_view id;
    bool PaletteScene::*need;
};

// The first that fits counts.
constexpr std::array kPaletteRules = {
    PaletteRule{"mnuHelpCommands", nullptr},
    PaletteRule{"mnuPopUpExportHistQuotes", nullptr},
    PaletteRule{"FundamentalData", nullptr},
    PaletteRule{"mnuPopUpGraph", nullptr},
    PaletteRule{"mnuPopUpSplitAdjustment", nullptr},
    PaletteRule{kPopUpMenu, &PaletteScene::hasTicker},
    PaletteRule{"mnuGraphics", &PaletteScene::hasTicker},
    PaletteRule{"Graphics", &PaletteScene::hasTicker},
    PaletteRule{"mnuEditSplitAdjustment", &PaletteScene::hasTicker},
    PaletteRule{"mnuEditCopyPicture", &PaletteScene::hasChart},
    PaletteRule{"mnuWindow", &PaletteScene::hasChild},
};

bool HasItsNeed(const MenuEntry& entry, const PaletteScene& scene) {
    const auto rule = std::find_if(kPaletteRules.begin(), kPaletteRules.end(), [&](const PaletteRule& row) {
        return row.id == entry.id || row.id == entry.parent;
    });
    if (rule == kPaletteRules.end()) return true;
    return rule->need != nullptr && scene.*rule->need;
}

std::string WordsOfMenu(std::string_view id) {
    const MenuEntry* const menu = FindMenuEntry(id);
    if (!menu) return {};
    return (id == kPopUpMenu ? std::string(kPopUpWords) : PlainWords(menu->words)) + ": ";
}

std::vector<std::string> WordsIn(std::string_view typed) {
    std::vector<std::string> words;
    for (const std::string_view piece : SplitAt(typed, ' ')) {
        if (!Trim(piece).empty()) words.push_back(UpperCase(Trim(piece)));
    }
    return words;
}

bool HoldsAll(const std::string& text, const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

// 0: the entry's own words begin with what was typed; 1: a word of them does; 2: it stands within.
std::size_t RankOf(const PaletteRow& row, const std::string& first) {
    const std::string own = UpperCase(PlainWords(row.command->words));
    if (own.starts_with(first)) return 0;
    return own.find(' ' + first) != std::string::npos ? 1 : 2;
}

}  // namespace

std::string PlainWords(std::string_view words) {
    std::string plain;
    for (const char c : words) {
        if (c != '&') plain += c;
    }
    return std::string(Trim(plain));
}

std::vector<PaletteRow> PaletteCommands(const PaletteScene& scene,
                                        const std::function<bool(const MenuEntry&)>& isEnabled) {
    std::vector<PaletteRow> rows;
    for (const MenuEntry& entry : kMenu) {
        const bool isEntry = entry.row == MenuRow::Entry || entry.row == MenuRow::CheckedEntry ||
                             entry.row == MenuRow::ButtonOnly;
        if (!isEntry || !HasItsNeed(entry, scene) || !isEnabled(entry)) continue;
        rows.push_back({&entry, WordsOfMenu(entry.parent) + PlainWords(entry.words)});
    }
    return rows;
}

std::vector<PaletteRow> PaletteMatches(const std::vector<PaletteRow>& commands,
                                       std::span<const std::string> tickers, std::string_view typed,
                                       std::size_t most) {
    const std::vector<std::string> words = WordsIn(typed);
    if (words.empty()) {
        const auto shown = static_cast<std::ptrdiff_t>(std::min(most, commands.size()));
        return {commands.begin(), commands.begin() + shown};
    }
    std::array<std::vector<PaletteRow>, 3> ranked;
    for (const PaletteRow& row : commands) {
        if (HoldsAll(UpperCase(row.words), words)) ranked[RankOf(row, words.front())].push_back(row);
    }
    // A ticker that is typed whole is meant before all.
    for (const std::string& ticker : tickers) {
        if (words.size() > 1 || !ticker.starts_with(words.front())) continue;
        const bool isWhole = ticker == words.front();
        auto& place = isWhole ? ranked[0] : ranked[1];
        place.insert(isWhole ? place.begin() : place.end(), PaletteRow{nullptr, ticker});
        if (ranked[1].size() > most) break;
    }
    std::vector<PaletteRow> matches;
    for (const auto& rank : ranked) matches.insert(matches.end(), rank.begin(), rank.end());
    if (matches.size() > most) matches.resize(most);
    return matches;
}

}  // namespace brantlow
