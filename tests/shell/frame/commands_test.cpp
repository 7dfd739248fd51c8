#include "shell/frame/commands.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/catalogue_words.h"

namespace brantlow {
namespace {

TEST(CommandCatalogue, NamesAreUniqueAndParentsStandBeforeTheirRows) {
    std::set<std::string_view> menus = {""};
    std::set<std::string_view> ids;
    for (const MenuEntry& command : kMenu) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
        EXPECT_TRUE(menus.contains(command.parent)) << command.id;
        if (command.row == MenuRow::Menu || command.row == MenuRow::PopUpMenu) menus.insert(command.id);
    }
}

TEST(CommandCatalogue, NoTwoEntriesShareAShortcut) {
    std::set<std::string_view> shortcuts;
    for (const MenuEntry& command : kMenu) {
        if (command.shortcut.empty()) continue;
        EXPECT_TRUE(shortcuts.insert(command.shortcut).second) << command.id;
    }
}

TEST(CommandCatalogue, EntriesStandInOrderWithTheirWords) {
    std::vector<std::string> expected;
    for (const MenuWords& row : kMenuWords) {
        expected.push_back(fmt::format("{}/{}: {}", row.parent, row.id, row.words));
    }
    std::vector<std::string> found;
    for (const MenuEntry& command : kMenu) {
        if (command.row == MenuRow::Separator || command.row == MenuRow::ButtonOnly) continue;
        found.push_back(fmt::format("{}/{}: {}", command.parent, command.id, command.words));
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(FindMenuEntry("mnuNothing"), nullptr);
}

TEST(CommandCatalogue, ButtonsHaveTheirToolTipsAndEntries) {
    EXPECT_EQ(kButtons.size(), std::size(kButtonWords));
    for (const ButtonWords& row : kButtonWords) {
        const auto button = std::find_if(kButtons.begin(), kButtons.end(),
                                         [&](const Button& other) { return other.id == row.id; });
        ASSERT_NE(button, kButtons.end()) << row.id;
        EXPECT_EQ(button->toolTip, row.toolTip) << row.id;
        EXPECT_EQ(button->command, row.command) << row.id;
        EXPECT_NE(FindMenuEntry(button->command), nullptr) << row.id;
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
        {"mnuViewExplain", true, false, true, false, false, false, false},
        {"mnuEvaluateStudy", true, false, false, false, false, false, false},
        {"mnuExtendedFundamentals", true, false, false, false, false, false, false},
        {"mnuFileImportQuotes", true, false, false, false, false, true, false},
        {"mnuFileImportHistory", true, true, true, true, true, true, false},
        {"mnuFileExportQuotes", true, false, true, true, false, true, false},
        {"mnuFileUpdateQuotes", true, true, false, false, false, false, false},
        {"mnuFileNewEODQuoteFile", true, true, true, true, true, true, false},
        {"mnuFileNewMyList", true, true, true, true, true, true, false},
        {"mnuFileNewFromMarket", true, true, true, true, true, true, false},
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
        {"mnuViewFitChart", true, true, true, true, true, true, true},
        {"mnuViewRememberWindowSize", true, true, true, true, true, true, true},
        {"mnuViewDoubleClickChart", true, true, true, true, true, true, true},
        {"mnuViewOpenWithoutWaiting", true, true, true, true, true, true, true},
        {"mnuFileExportCsv", true, true, true, true, true, false, false},
        {"mnuFilePrintTable", true, true, true, true, true, false, true},
        {"mnuEditCopy", true, true, true, true, true, false, true},
        {"mnuEditSelectAll", true, true, true, true, true, false, true},
        {"mnuEditFind", true, true, true, true, true, false, true},
        {"mnuEditCopyPicture", true, true, true, true, true, true, true},
        {"mnuViewChartDesktop", true, true, true, true, true, true, true},
        {"mnuViewChartDark", true, true, true, true, true, true, true},
        {"mnuEditSplitAdjustment", true, true, true, true, true, false, false},
        {"mnuPopUpSplitAdjustmentMakeAdjustment", true, true, true, true, true, false, false},
        {"SortAscending", true, true, true, true, true, false, false},
        {"mnuViewSplits", true, true, true, true, true, true, true},
        {"mnuSettingsStockSelector", true, true, true, true, true, true, false},
        {"mnuSettingsSources", true, true, true, true, true, true, false},
        {"mnuSettingsAlarmMail", true, true, true, true, true, true, false},
        {"mnuViewFiredAlarms", true, true, true, true, true, true, false},
        {"SetupWizard", true, true, true, true, true, true, false},
        {"mnuPopUpNews", true, true, true, true, true, true, true},
        {"mnuHelpKeys", true, true, true, true, true, true, true},
        {"mnuHelpCommands", true, true, true, true, true, true, true},
        {"mnuHelpSupport", true, true, true, true, true, true, true},
        {"mnuWindowCascade", true, true, true, true, true, true, true},
    };
    for (const Row& row : rows) {
        const MenuEntry& command = *FindMenuEntry(row.id);
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
    EXPECT_TRUE(IsEnabled(*FindMenuEntry("mnuFileClose"), kWithNothing | kChartActive, false));
    EXPECT_FALSE(IsEnabled(*FindMenuEntry("mnuFileClose"), kWithNothing | kChartActive, true));
    EXPECT_FALSE(IsEnabled(*FindMenuEntry("mnuFilePopulate"), kWithNothing | kChartActive, false));
    EXPECT_TRUE(IsEnabled(*FindMenuEntry("mnuFilePopulate"), kWithDdq | kChartActive, false));
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
            const MenuEntry& command = *FindMenuEntry(row.id);
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
