#include "shell/commands.h"

#include <gtest/gtest.h>

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
        {"mnuEvaluatePickStocks", "St&ock Selector"},
        {"mnuWindow", "&Window"},
        {"mnuWindowCascade", "&Cascade"},
        {"mnuWindowTileHorizontal", "Tile &Horizontal"},
        {"mnuWindowTileVertical", "Tile &Vertical"},
        {"mnuWindowArrangeIcons", "&Arrange Icons"},
        {"mnuPopUp", "&PopUp"},
        {"mnuPopUpExportHistQuotes", "Export Historical Quotes"},
    };
    for (const auto& [id, words] : rows) {
        const Command* command = FindCommand(id);
        ASSERT_NE(command, nullptr) << id;
        EXPECT_EQ(command->words, words) << id;
    }
    EXPECT_EQ(FindCommand("mnuNothing"), nullptr);
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
