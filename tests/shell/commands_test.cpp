#include "shell/commands.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

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

TEST(CommandCatalogue, EntriesHaveTheirWords) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"mnuFile", "&File"},
        {"mnuFileNew", "&New Quote File"},
        {"mnuFileNewEODQuoteFile", "New End of Day Quote File"},
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
        {"mnuFileExit", "E&xit"},
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
        {"mnuEvaluatePickStocks", "St&ock Selector"},
        {"mnuWindow", "&Window"},
        {"mnuWindowCascade", "&Cascade"},
        {"mnuWindowTileHorizontal", "Tile &Horizontal"},
        {"mnuWindowTileVertical", "Tile &Vertical"},
        {"mnuWindowArrangeIcons", "&Arrange Icons"},
        {"mnuHelp", "&Help"},
        {"mnuHelpQuestions", "Common Questions"},
        {"mnuHelpUsersForum", "User's Forum"},
        {"mnuHelpSupport", "Support"},
        {"mnuPopUp", "&PopUp"},
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
    for (const auto& [id, words] : rows) {
        const Command* command = FindCommand(id);
        ASSERT_NE(command, nullptr) << id;
        EXPECT_EQ(command->words, words) << id;
    }
    EXPECT_EQ(FindCommand("mnuNothing"), nullptr);
}

// The names of the menu's rows that `takes` takes, in their order.
template <class Takes>
std::vector<std::string_view> NamesInOrder(const Takes& takes) {
    std::vector<std::string_view> names;
    for (const Command& command : kMenu) {
        if (command.row == MenuRow::Entry && takes(command)) names.push_back(command.id);
    }
    return names;
}

TEST(CommandCatalogue, TheResearchEntriesStandInOrder) {
    const std::vector<std::string_view> view = {
        "mnuViewAdvanceDecline",  "mnuViewDowngrades",     "mnuViewEconomicCalander",
        "mnuViewEarnings",        "mnuViewInPlay",         "mnuViewIPOs",
        "mnuViewMarketOverview",  "mnuViewMostActiveAMEX", "mnuViewMostActiveNYSE",
        "mnuViewMostActiveNasdq", "mnuViewSplits",         "mnuViewStockScreener",
        "mnuViewSymbolSearch",    "mnuViewUSIndices",      "mnuViewUpgrades",
        "mnuViewWorldIndices",    "mnuViewBrokererageFirm"};
    EXPECT_EQ(NamesInOrder([](const Command& command) { return command.parent == "mnuView"; }), view);
    // Those of the pop-up menu stand one after another at its end.
    const std::vector<std::string_view> popUp = {
        "mnuPopUpAnalyst",      "mnuPopUpChart",         "mnuPopUpCompetitors", "mnuPopUpDetailedQuote",
        "mnuPopUpFinancials",   "mnuPopUpKeyStatistics", "mnuPopUpIndustry",    "mnuPopUpInsiderTrading",
        "mnuPopUpMessageBoard", "mnuPopUpNews",          "mnuPopUpProfile",     "mnuPopUpOptions",
        "mnuPopUpOwnership",    "mnuPopUpRealTimeQuote", "mnuPopUpReports",     "mnuPopUpResearch",
        "mnuPopUpSECFilings"};
    std::vector<std::string_view> atTheEnd =
        NamesInOrder([](const Command& command) { return command.parent == "mnuPopUp"; });
    ASSERT_GE(atTheEnd.size(), popUp.size());
    atTheEnd.erase(atTheEnd.begin(), atTheEnd.end() - static_cast<std::ptrdiff_t>(popUp.size()));
    EXPECT_EQ(atTheEnd, popUp);
}

TEST(CommandCatalogue, ButtonsHaveTheirToolTipsAndEntries) {
    struct Row {
        std::string_view id, toolTip, command;
    };
    const Row rows[] = {
        {"Command22", "Create New EOD Quote File", "mnuFileNewEODQuoteFile"},
        {"Command5", "Open EOD Quote File", "mnuFileOpenQuotesDB"},
        {"Command6", "Open Evaluation File", "mnuFileOpenEvaluationDB"},
        {"Command24", "Open Extended Fundamental File", "mnuFileOpenExtendedFundamental"},
        {"Command8", "Save File", "mnuFileSave"},
        {"Command7", "Close File", "mnuFileClose"},
        {"Command4", "Stock Selector", "mnuEvaluatePickStocks"},
        {"Command18", "Browser Market Overiew", "mnuViewMarketOverview"},
        {"Command12", "Sort Ticker Symbols Ascending", "SortAscending"},
        {"Command13", "Sort Ticker Symbols Decending", "SortDescending"},
        {"Command20", "Exit", "mnuFileExit"},
    };
    ASSERT_EQ(std::size(rows), kButtons.size());
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        EXPECT_EQ(kButtons[i].id, rows[i].id);
        EXPECT_EQ(kButtons[i].toolTip, rows[i].toolTip);
        EXPECT_EQ(kButtons[i].command, rows[i].command);
        EXPECT_NE(FindCommand(kButtons[i].command), nullptr);
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
        {"mnuFileExit", true, true, true, true, true, true, true},
        {"mnuViewToolbar", true, true, true, true, true, true, true},
        {"mnuViewSplits", true, true, true, true, true, true, true},
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
