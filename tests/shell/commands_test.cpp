#include "shell/commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace brantlow {
namespace {

TEST(CommandCatalogue, NamesAreUniqueAndParentsStandBeforeTheirRows) {
    std::set<std::string_view> menus = {""};
    std::set<std::string_view> ids;
    for (const Command& command : kMenu) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
        EXPECT_TRUE(menus.contains(command.parent)) << command.id;
        if (command.row == MenuRow::Menu || command.row == MenuRow::PopUpMenu) menus.insert(command.id);
    }
}

TEST(CommandCatalogue, NoTwoEntriesShareAShortcut) {
    std::set<std::string_view> shortcuts;
    for (const Command& command : kMenu) {
        if (command.shortcut.empty()) continue;
        EXPECT_TRUE(shortcuts.insert(command.shortcut).second) << command.id;
    }
}

// What the menu holds, in order: entries and menus by name and words.
struct MenuWords {
    std::string_view id, words;
};
constexpr MenuWords kMenuWords[] = {
    {"mnuFile", "&File"},
    {"mnuFileNew", "&New Quote File"},
    {"mnuFileNewEODQuoteFile", "New End of Day Quote File"},
    {"mnuFileNewCreateMarketQuoteFile", "Create Market Quote File"},
    {"mnuFileOpenQuotesDB", "Open End of Day Quote File"},
    {"mnuFileOpenEvaluationDB", "Open Stock Selector File"},
    {"mnuFileOpenExtendedFundamental", "Open Ext Fundamanental File"},
    {"mnuFileClose", "&Close"},
    {"mnuFileSave", "&Save"},
    {"mnuFileSaveAs", "Save &As..."},
    {"mnuFilePopulate", "Populate Database"},
    {"mnuFileImportQuotes", "Import File"},
    {"mnuFileExportQuotes", "&Export File"},
    {"mnuFileUpdateQuotes", "Update Quotes"},
    {"mnuFilePrintPreview", "Print Preview Browser"},
    {"mnuFilePrint", "&Print..."},
    {"mnuFilePageSetup", "Page Set&up..."},
    {"mnuFileMRU", ""},
    {"mnuFileExit", "E&xit"},
    {"mnuEdit", "&Edit"},
    {"mnuEditBackUpProgramFiles", "BackUp Program Files"},
    {"mnuEditBackUpQuoteDatabase", "BackUp Quote Database"},
    {"mnuEditRestoreProgramFiles", "Restore Program Files"},
    {"mnuEditRestoreQuoteDatabase", "Restore Quote Database"},
    {"mnuEditSplitAdjustment", "Split Adjustment"},
    {"mnuEditEditQuoteFiles", "Edit Quote Files with  Notepad"},
    {"mnuEditEditDatabaseFiles", "Edit Database Files with  Notepad"},
    {"mnuEditCombineQuoteFiles", "Combine Quote Files"},
    {"mnuEditRemoveLastUpdate", "Remove Last Update"},
    {"mnuEditDelete", "Delete File"},
    {"mnuView", "&View"},
    {"mnuViewToolbar", "&Toolbar"},
    {"mnuViewStatusBar", "Status &Bar"},
    {"mnuViewAdvanceDecline", "Advance Decline"},
    {"mnuViewDowngrades", "Downgrades"},
    {"mnuViewEconomicCalander", "Economic Calander"},
    {"mnuViewEarnings", "&Earnings"},
    {"mnuViewInPlay", "In Play"},
    {"mnuViewIPOs", "IPO's"},
    {"mnuViewMarketOverview", "&Market Overview"},
    {"mnuViewMostActiveAMEX", "Most Active: AMEX"},
    {"mnuViewMostActiveNYSE", "Most Active: NYSE"},
    {"mnuViewMostActiveNasdq", "Most Active: NASDQ"},
    {"mnuViewSplits", "&Splits"},
    {"mnuViewStockScreener", "Stock Screener"},
    {"mnuViewSymbolSearch", "S&ymbol Search"},
    {"mnuViewUSIndices", "U.S. Indices"},
    {"mnuViewUpgrades", "Upgrades"},
    {"mnuViewWorldIndices", "World Indices"},
    {"mnuViewBrokererageFirm", "Bro&kerage Firm"},
    {"mnuSettings", "&Settings"},
    {"mnuSettingsApplication", "Application"},
    {"mnuSettingsStockSelector", "&Stock Selector"},
    {"mnuGraphics", "&Graphics"},
    {"mnuGraphicsHLC", "High, Low, Close"},
    {"mnuGraphicsCandleStick", "Candle Stick"},
    {"mnuEvaluatePickStocks", "St&ock Selector"},
    {"mnuExtendedFundamentals", "E&xtended Fundamentals"},
    {"mnuWindow", "&Window"},
    {"mnuWindowCascade", "&Cascade"},
    {"mnuWindowTileHorizontal", "Tile &Horizontal"},
    {"mnuWindowTileVertical", "Tile &Vertical"},
    {"mnuWindowArrangeIcons", "&Arrange Icons"},
    {"mnuHelp", "&Help"},
    {"mnuHelpFile", "&Help File"},
    {"mnuHelpIndex", "Help &Index"},
    {"SetupWizard", "Setup Wizard"},
    {"mnuHelpAbout", "&About "},
    {"mnuHelpDisclaimer", "Terms, Conditions, and Disclaimer"},
    {"mnuHelpBrantlowUpdates", "Brantlow Updates"},
    {"mnuHelpQuestions", "Common Questions"},
    {"mnuHelpUsersForum", "User's Forum"},
    {"mnuHelpSupport", "Support"},
    {"mnuPopUp", "&PopUp"},
    {"mnuPopUpGraph", "Graph"},
    {"mnuPopUpGraphicsHLC", "High, Low, Close"},
    {"mnuPopUpGraphicsCandleStick", "Candle Stick"},
    {"mnuPopUpSplitAdjustment", "Split Adjustment"},
    {"mnuPopUpSplitAdjustmentMakeAdjustment", "Make Adjustment"},
    {"mnuPopUpSplitAdjustmentExit", "Exit"},
    {"mnuPopUpTrade", "Trade"},
    {"mnuPopUpExportHistQuotes", "Export Historical Quotes"},
    {"mnuPopUpAnalyst", "Analyst"},
    {"mnuPopUpChart", "Chart"},
    {"mnuPopUpCompetitors", "Competitors"},
    {"mnuPopUpDetailedQuote", "Detailed Quote"},
    {"mnuPopUpFinancials", "Financials"},
    {"mnuPopUpKeyStatistics", "Key Fundamentals"},
    {"mnuPopUpIndustry", "Industry"},
    {"mnuPopUpInsiderTrading", "Insider Trading"},
    {"mnuPopUpMessageBoard", "MessageBoard"},
    {"mnuPopUpNews", "News"},
    {"mnuPopUpProfile", "Profile"},
    {"mnuPopUpOptions", "Options"},
    {"mnuPopUpOwnership", "Ownership"},
    {"mnuPopUpRealTimeQuote", "Real Time Quote"},
    {"mnuPopUpReports", "Reports"},
    {"mnuPopUpResearch", "Research"},
    {"mnuPopUpSECFilings", "SEC Filings"},
};

TEST(CommandCatalogue, EntriesStandInOrderWithTheirWords) {
    std::size_t next = 0;
    for (const Command& command : kMenu) {
        if (command.row == MenuRow::Separator || command.row == MenuRow::ButtonOnly) continue;
        while (next < std::size(kMenuWords) && kMenuWords[next].id != command.id) ++next;
        ASSERT_LT(next, std::size(kMenuWords)) << command.id << " is not in the menu, or not there";
        EXPECT_EQ(command.words, kMenuWords[next].words) << command.id;
    }
    EXPECT_EQ(FindCommand("mnuNothing"), nullptr);
}

TEST(CommandCatalogue, ButtonsHaveTheirToolTipsAndEntries) {
    struct Row {
        std::string_view id, toolTip, command;  // without a command: a button with a routine of its own
    };
    const Row rows[] = {
        {"Command1", "Graphics", ""},
        {"Command4", "Stock Selector", "mnuEvaluatePickStocks"},
        {"Command5", "Open EOD Quote File", "mnuFileOpenQuotesDB"},
        {"Command6", "Open Evaluation File", "mnuFileOpenEvaluationDB"},
        {"Command7", "Close File", "mnuFileClose"},
        {"Command8", "Save File", "mnuFileSave"},
        {"Command9", "Print Preveiw Browser", "mnuFilePrintPreview"},
        {"Command10", "Print", "mnuFilePrint"},
        {"Command11", "Delete File", "mnuEditDelete"},
        {"Command12", "Sort Ticker Symbols Ascending", ""},
        {"Command13", "Sort Ticker Symbols Decending", ""},
        {"Command14", "Back Up Quote Database", "mnuEditBackUpQuoteDatabase"},
        {"Command15", "Back Up Program Files", "mnuEditBackUpProgramFiles"},
        {"Command16", "Restore Backed Up Quote Database", "mnuEditRestoreQuoteDatabase"},
        {"Command17", "Restore Backed Up Program Files", "mnuEditRestoreProgramFiles"},
        {"Command18", "Browser Market Overiew", "mnuViewMarketOverview"},
        {"Command19", "Brantlow Update", "mnuHelpBrantlowUpdates"},
        {"Command20", "Exit", "mnuFileExit"},
        {"Command21", "Help", "mnuHelpFile"},
        {"Command22", "Create New EOD Quote File", "mnuFileNewEODQuoteFile"},
        {"Command23", "Extended Fundamental Data", ""},
        {"Command24", "Open Extended Fundamental File", "mnuFileOpenExtendedFundamental"},
    };
    for (const Button& button : kButtons) {
        const auto row = std::find_if(std::begin(rows), std::end(rows),
                                      [&](const Row& other) { return other.id == button.id; });
        ASSERT_NE(row, std::end(rows)) << button.id;
        EXPECT_EQ(button.toolTip, row->toolTip) << button.id;
        if (row->command.empty()) continue;
        EXPECT_EQ(button.command, row->command) << button.id;
        EXPECT_NE(FindCommand(button.command), nullptr) << button.id;
    }
}

// One row an entry: with a .ddq, .db, .dbe, .efq, another file, nothing open, and in a paused run.
TEST(EnablingRules, HoldForEveryKindOfTable) {
    struct Row {
        std::string_view id;
        bool ddq, db, dbe, efq, other, nothing, pausedRun;
    };
    const Row rows[] = {
        {"mnuFilePopulate", true, false, false, false, false, false, false},
        {"mnuEvaluatePickStocks", true, false, false, false, false, true, false},
        {"mnuExtendedFundamentals", true, false, false, false, false, false, false},
        {"mnuFileImportQuotes", true, false, false, false, false, true, false},
        {"mnuFileExportQuotes", true, false, true, true, false, true, false},
        {"mnuFileUpdateQuotes", true, true, false, false, false, false, false},
        {"mnuFileNewEODQuoteFile", true, true, true, true, true, true, false},
        {"mnuFileOpenQuotesDB", true, true, true, true, true, true, false},
        {"mnuFileOpenEvaluationDB", true, true, true, true, true, true, false},
        {"mnuFileOpenExtendedFundamental", true, true, true, true, true, true, false},
        {"mnuFileClose", true, true, true, true, true, false, false},
        {"mnuFileSave", true, true, true, true, false, false, true},
        {"mnuFileSaveAs", true, true, true, true, false, false, false},
        {"mnuFilePrintPreview", false, false, false, false, false, false, false},
        {"mnuFilePrint", true, false, true, true, false, false, true},
        {"mnuFilePageSetup", true, true, true, true, true, true, true},
        {"mnuFileExit", true, true, true, true, true, true, true},
        {"mnuGraphicsHLC", true, true, true, true, true, true, false},
        {"mnuGraphicsCandleStick", true, true, true, true, true, true, false},
        {"Graphics", true, true, true, true, true, true, false},
        {"mnuPopUpGraphicsHLC", true, true, true, true, true, true, false},
        {"mnuPopUpGraphicsCandleStick", true, true, true, true, true, true, false},
        {"mnuSettingsApplication", true, true, true, true, true, true, false},
        {"mnuViewToolbar", true, true, true, true, true, true, true},
        {"mnuEditSplitAdjustment", true, true, true, true, true, false, false},
        {"mnuPopUpSplitAdjustmentMakeAdjustment", true, true, true, true, true, false, false},
        {"SortAscending", true, true, true, true, true, false, false},
        {"mnuViewSplits", true, true, true, true, true, true, true},
        {"mnuSettingsStockSelector", true, true, true, true, true, true, false},
        {"SetupWizard", true, true, true, true, true, true, false},
        {"mnuPopUpNews", true, true, true, true, true, true, true},
        {"mnuHelpSupport", true, true, true, true, true, true, true},
        {"mnuWindowCascade", true, true, true, true, true, true, true},
    };
    for (const Row& row : rows) {
        const Command& command = *FindCommand(row.id);
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::Ddq), false), row.ddq) << row.id;
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::Db), false), row.db) << row.id;
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::Dbe), false), row.dbe) << row.id;
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::Efq), false), row.efq) << row.id;
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::None), false), row.other) << row.id;
        EXPECT_EQ(IsEnabled(command, kWithNothing, false), row.nothing) << row.id;
        EXPECT_EQ(IsEnabled(command, StateOf(FileKind::Dbe), true), row.pausedRun) << row.id;
    }
}

// A chart may stand with a table behind it or without one.
TEST(EnablingRules, AnOpenChartCanBeClosedWithoutATable) {
    EXPECT_TRUE(IsEnabled(*FindCommand("mnuFileClose"), kWithNothing | kChartActive, false));
    EXPECT_FALSE(IsEnabled(*FindCommand("mnuFileClose"), kWithNothing | kChartActive, true));
    EXPECT_FALSE(IsEnabled(*FindCommand("mnuFilePopulate"), kWithNothing | kChartActive, false));
    EXPECT_TRUE(IsEnabled(*FindCommand("mnuFilePopulate"), kWithDdq | kChartActive, false));
}

// While the chart or the browser is the active child, whatever table is open behind it.
TEST(EnablingRules, FollowTheActiveChild) {
    struct Row {
        std::string_view id;
        bool chart, browser, chartInPausedRun;
    };
    const Row rows[] = {
        {"mnuFilePrintPreview", false, true, false},
        {"mnuFilePrint", true, true, true},
        {"mnuFileSave", true, true, true},
        {"mnuFileSaveAs", true, true, false},
    };
    for (const OpenStates open : {kWithNothing, kWithOther}) {
        for (const Row& row : rows) {
            const Command& command = *FindCommand(row.id);
            EXPECT_EQ(IsEnabled(command, open | kChartActive, false), row.chart) << row.id;
            EXPECT_EQ(IsEnabled(command, open | kBrowserActive, false), row.browser) << row.id;
            EXPECT_EQ(IsEnabled(command, open | kChartActive, true), row.chartInPausedRun) << row.id;
            EXPECT_FALSE(IsEnabled(command, open, false) && row.id != "mnuFilePageSetup") << row.id;
        }
    }
}

TEST(FileKind, IsReadFromTheEndOfTheNameCaseAndAll) {
    const std::pair<std::string_view, FileKind> rows[] = {
        {"Jan.ddq", FileKind::Ddq},  {"New EOD Quotes.db", FileKind::Db},
        {"x.dbe", FileKind::Dbe},    {"sub/x.efq", FileKind::Efq},
        {"Jan.DDQ", FileKind::None}, {"Jan.ddq.txt", FileKind::None},
        {"", FileKind::None},        {"dq", FileKind::None},
    };
    for (const auto& [name, kind] : rows) EXPECT_EQ(KindOf(name), kind) << name;
}

}  // namespace
}  // namespace brantlow
