#include "shell/frame/palette_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brantlow {
namespace {

std::vector<std::string> WordsOf(const std::vector<PaletteRow>& rows) {
    std::vector<std::string> words;
    for (const PaletteRow& row : rows) words.push_back(row.words);
    return words;
}

TEST(CommandPalette, OffersEveryEntryOfTheMenuThatCanBeChosen) {
    const auto all = PaletteCommands([](const MenuEntry&) { return true; });
    std::size_t entries = 0;
    for (const MenuEntry& entry : kMenu) {
        const bool isEntry = entry.row == MenuRow::Entry || entry.row == MenuRow::CheckedEntry ||
                             entry.row == MenuRow::ButtonOnly;
        if (!isEntry) continue;
        ++entries;
        EXPECT_TRUE(std::any_of(all.begin(), all.end(), [&](const PaletteRow& row) {
            return row.command == &entry;
        })) << entry.id;
    }
    EXPECT_EQ(all.size(), entries);
    const auto some = PaletteCommands([](const MenuEntry& entry) { return entry.id == "mnuFileSaveAs"; });
    EXPECT_EQ(WordsOf(some), std::vector<std::string>{"File: Save As..."});
    EXPECT_TRUE(PaletteCommands([](const MenuEntry&) { return false; }).empty());
}

TEST(CommandPalette, FindsCommandsAndTickersBestFirst) {
    const auto commands = PaletteCommands([](const MenuEntry& entry) {
        return entry.id == "mnuFileSave" || entry.id == "mnuFileSaveAs" ||
               entry.id == "mnuEvaluatePickStocks" || entry.id == "mnuSettingsStockSelector" ||
               entry.id == "mnuPopUpSECFilings";
    });
    const std::vector<std::string> tickers = {"SA", "SAVE", "STOCK", "X"};
    struct Row {
        const char* typed;
        std::vector<std::string> found;
    };
    const Row rows[] = {
        {"save as", {"File: Save As..."}},
        {"as save", {"File: Save As..."}},
        {"save", {"SAVE", "File: Save", "File: Save As..."}},
        {"SAV", {"File: Save", "File: Save As...", "SAVE"}},
        {"selector", {"Settings: Stock Selector", "Stock Selector"}},
        {"filings", {"PopUp: SEC Filings"}},
        {"sa", {"SA", "File: Save", "File: Save As...", "SAVE"}},
        {"x", {"X"}},
        {"zzz", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(WordsOf(PaletteMatches(commands, tickers, row.typed, 100)), row.found) << row.typed;
    EXPECT_EQ(PaletteMatches(commands, tickers, "  ", 100).size(), 5u);
    EXPECT_EQ(PaletteMatches(commands, tickers, "", 2).size(), 2u);
    EXPECT_EQ(PaletteMatches(commands, tickers, "s", 3).size(), 3u);
}

TEST(CommandPalette, WordsStandWithoutTheirMarks) {
    EXPECT_EQ(PlainWords("Save &As..."), "Save As...");
    EXPECT_EQ(PlainWords("&About "), "About");
}

}  // namespace
}  // namespace brantlow
