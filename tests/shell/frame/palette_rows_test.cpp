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

constexpr PaletteScene kEverything{true, true, true};

std::vector<std::string_view> IdsOf(const std::vector<PaletteRow>& rows) {
    std::vector<std::string_view> ids;
    for (const PaletteRow& row : rows) ids.push_back(row.command->id);
    return ids;
}

// The entries that are in `more` and not in `fewer`; both in the order of the menu.
std::vector<std::string_view> Without(const std::vector<std::string_view>& more,
                                      const std::vector<std::string_view>& fewer) {
    std::vector<std::string_view> rest;
    for (const std::string_view id : more) {
        if (std::find(fewer.begin(), fewer.end(), id) == fewer.end()) rest.push_back(id);
    }
    return rest;
}

TEST(CommandPalette, OffersEveryEntryOfTheMenuThatCanBeChosenAndDoesSomethingOfItsOwn) {
    std::vector<std::string_view> entries;
    for (const MenuEntry& entry : kMenu) {
        const bool isEntry = entry.row == MenuRow::Entry || entry.row == MenuRow::CheckedEntry ||
                             entry.row == MenuRow::ButtonOnly;
        if (isEntry) entries.push_back(entry.id);
    }
    const auto all = IdsOf(PaletteCommands(kEverything, [](const MenuEntry&) { return true; }));
    EXPECT_EQ(
        Without(entries, all),
        (std::vector<std::string_view>{"mnuHelpCommands", "FundamentalData", "mnuPopUpGraphicsHLC",
                                       "mnuPopUpGraphicsCandleStick", "mnuPopUpSplitAdjustmentMakeAdjustment",
                                       "mnuPopUpSplitAdjustmentExit", "mnuPopUpExportHistQuotes"}));
    EXPECT_TRUE(Without(all, entries).empty());
    const auto some =
        PaletteCommands(kEverything, [](const MenuEntry& entry) { return entry.id == "mnuFileSaveAs"; });
    EXPECT_EQ(WordsOf(some), std::vector<std::string>{"File: Save As..."});
    EXPECT_TRUE(PaletteCommands(kEverything, [](const MenuEntry&) { return false; }).empty());
}

TEST(CommandPalette, LeavesOutWhatWouldFindNothingToWorkOn) {
    const auto offered = [](const PaletteScene& scene) {
        return IdsOf(PaletteCommands(scene, [](const MenuEntry&) { return true; }));
    };
    const auto all = offered(kEverything);
    using Ids = std::vector<std::string_view>;
    EXPECT_EQ(Without(all, offered({true, false, true})), Ids{"mnuEditCopyPicture"});
    EXPECT_EQ(Without(all, offered({true, true, false})),
              (Ids{"mnuWindowCascade", "mnuWindowTileHorizontal", "mnuWindowTileVertical",
                   "mnuWindowArrangeIcons"}));
    const Ids ofTicker = Without(all, offered({false, true, true}));
    ASSERT_EQ(ofTicker.size(), 22U);
    EXPECT_EQ(Ids(ofTicker.begin(), ofTicker.begin() + 5),
              (Ids{"mnuEditSplitAdjustment", "mnuGraphicsHLC", "mnuGraphicsCandleStick", "Graphics",
                   "mnuPopUpTrade"}));
    for (std::size_t i = 4; i < ofTicker.size(); ++i) {
        EXPECT_EQ(FindMenuEntry(ofTicker[i])->parent, "mnuPopUp") << ofTicker[i];
    }
}

TEST(CommandPalette, FindsCommandsAndTickersBestFirst) {
    const auto commands = PaletteCommands(kEverything, [](const MenuEntry& entry) {
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
        {"filings", {"Ticker: SEC Filings"}},
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
