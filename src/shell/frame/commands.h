// The command catalogue: every menu entry and every button of the main frame with its words, its shortcut and
// when it is enabled. The frame builds its menu bar and its row of buttons from these tables and finds the
// routine behind an entry by the entry's name; a new command is a new row here and a row in the frame.
#pragma once

#include <array>
#include <string_view>

#include "shell/file_kind.h"

namespace brantlow {

// When an entry is enabled: a sum of these, one for each kind of open table, one for no table at all, and one
// for each active child that is no table.
using OpenStates = unsigned;
inline constexpr OpenStates kWithDdq = 1;
inline constexpr OpenStates kWithDb = 2;
inline constexpr OpenStates kWithDbe = 4;
inline constexpr OpenStates kWithEfq = 8;
inline constexpr OpenStates kWithOther = 16;
inline constexpr OpenStates kWithNothing = 32;
inline constexpr OpenStates kChartActive = 64;
inline constexpr OpenStates kBrowserActive = 128;
inline constexpr OpenStates kWithKind = kWithDdq | kWithDb | kWithDbe | kWithEfq;
inline constexpr OpenStates kWithTable = kWithKind | kWithOther;
inline constexpr OpenStates kWithPicture = kChartActive | kBrowserActive;
inline constexpr OpenStates kAlways = kWithTable | kWithNothing;

// The state while a table of this kind is open.
OpenStates StateOf(FileKind kind);

enum class MenuRow { Menu, PopUpMenu, Entry, CheckedEntry, Separator, RecentFiles, ButtonOnly };

// One row of the menu, in order. A row whose parent is empty stands on the menu bar itself; the pop-up menu
// stands nowhere and appears under a right-click. A row that is for a button only stands in no menu.
struct Command {
    MenuRow row;
    std::string_view id;
    std::string_view parent;
    std::string_view words;
    std::string_view toolTip;
    std::string_view shortcut;  // portable form; "Ctrl" is the platform's command key
    std::string_view icon;      // name of its picture; empty for none
    OpenStates enabled = kAlways;
    // A long run works on the open table; while it is paused, what would take the table away stays disabled.
    bool duringRun = false;
};

inline constexpr std::array kMenu = {
    Command{MenuRow::Menu, "mnuFile", "", "&File", "", "", ""},
    Command{MenuRow::Menu, "mnuFileNew", "mnuFile", "&New Quote File", "", "", "new"},
    Command{MenuRow::Entry, "mnuFileNewEODQuoteFile", "mnuFileNew", "New End of Day Quote File",
            "Create a new, empty end of day quote file", "Ctrl+N", "new"},
    Command{MenuRow::Entry, "mnuFileNewCreateMarketQuoteFile", "mnuFileNew", "Create Market Quote File",
            "Start the program that creates the quote file of a whole market", "", ""},
    Command{MenuRow::Separator, "mnuFileBar1", "mnuFile", "", "", "", ""},
    Command{MenuRow::Entry, "mnuFileOpenQuotesDB", "mnuFile", "Open End of Day Quote File",
            "Open an end of day quote file", "Ctrl+O", "open-quotes"},
    Command{MenuRow::Entry, "mnuFileOpenEvaluationDB", "mnuFile", "Open Stock Selector File",
            "Open the saved results of a Stock Selector run", "Ctrl+Shift+O", "open-evaluation"},
    Command{MenuRow::Entry, "mnuFileOpenExtendedFundamental", "mnuFile", "Open Ext Fundamanental File",
            "Open a file of extended fundamental data", "Ctrl+Alt+O", "open-fundamental"},
    Command{MenuRow::Separator, "mnuFileBar2", "mnuFile", "", "", "", ""},
    Command{MenuRow::Entry, "mnuFileClose", "mnuFile", "&Close", "Close the open file", "Ctrl+W", "close",
            kWithTable | kWithPicture},
    Command{MenuRow::Entry, "mnuFileSave", "mnuFile", "&Save", "Save the open file", "Ctrl+S", "save",
            kWithKind | kWithPicture, true},
    Command{MenuRow::Entry, "mnuFileSaveAs", "mnuFile", "Save &As...",
            "Save the open file under another name", "Ctrl+Shift+S", "save-as", kWithKind | kWithPicture},
    Command{MenuRow::Separator, "mnuFileBar4", "mnuFile", "", "", "", ""},
    Command{MenuRow::Entry, "mnuFilePopulate", "mnuFile", "Populate Database",
            "Download the history of every ticker of the quote file", "", "populate", kWithDdq},
    Command{MenuRow::Entry, "mnuFileImportQuotes", "mnuFile", "Import File",
            "Import quotes from another program's file", "Ctrl+I", "import", kWithDdq | kWithNothing},
    Command{MenuRow::Entry, "mnuFileExportQuotes", "mnuFile", "&Export File",
            "Export the open file to another program", "Ctrl+E", "export",
            kWithDdq | kWithDbe | kWithEfq | kWithNothing},
    Command{MenuRow::Entry, "mnuFileUpdateQuotes", "mnuFile", "Update Quotes",
            "Fetch the day's quotes of every ticker of the quote file", "F5", "update", kWithDdq | kWithDb},
    Command{MenuRow::Separator, "mnuFileBar5", "mnuFile", "", "", "", ""},
    Command{MenuRow::Entry, "mnuFilePrintPreview", "mnuFile", "Print Preview Browser",
            "Show the browser's page as it would be printed", "", "print-preview", kBrowserActive},
    Command{MenuRow::Entry, "mnuFilePrint", "mnuFile", "&Print...", "Print the active window", "Ctrl+P",
            "print", kWithDdq | kWithDbe | kWithEfq | kWithPicture, true},
    Command{MenuRow::Entry, "mnuFilePageSetup", "mnuFile", "Page Set&up...",
            "Choose the printer and the form of the page", "", "page-setup", kAlways, true},
    Command{MenuRow::RecentFiles, "mnuFileMRU", "mnuFile", "", "", "", ""},
    Command{MenuRow::Separator, "mnuFileBar3", "mnuFile", "", "", "", ""},
    Command{MenuRow::Entry, "mnuFileExit", "mnuFile", "E&xit", "Leave Brantlow", "Ctrl+Q", "exit", kAlways,
            true},
    Command{MenuRow::Menu, "mnuEdit", "", "&Edit", "", "", ""},
    Command{MenuRow::Entry, "mnuEditBackUpProgramFiles", "mnuEdit", "BackUp Program Files",
            "Copy tables and settings to the back-up folder", "", "back-up-program"},
    Command{MenuRow::Entry, "mnuEditBackUpQuoteDatabase", "mnuEdit", "BackUp Quote Database",
            "Copy the quote database to the back-up folder", "", "back-up-database"},
    Command{MenuRow::Entry, "mnuEditRestoreProgramFiles", "mnuEdit", "Restore Program Files",
            "Copy tables and settings back from the back-up folder", "", "restore-program"},
    Command{MenuRow::Entry, "mnuEditRestoreQuoteDatabase", "mnuEdit", "Restore Quote Database",
            "Copy the quote database back from the back-up folder", "", "restore-database"},
    Command{MenuRow::Entry, "mnuEditSplitAdjustment", "mnuEdit", "Split Adjustment",
            "Restate the history of the selected ticker after a stock split", "", "split", kWithTable},
    Command{MenuRow::Separator, "mnuEditBar1", "mnuEdit", "", "", "", ""},
    Command{MenuRow::Entry, "mnuEditEditQuoteFiles", "mnuEdit", "Edit Quote Files with  Notepad",
            "Open a quote file in the text editor", "", "edit"},
    Command{MenuRow::Entry, "mnuEditEditDatabaseFiles", "mnuEdit", "Edit Database Files with  Notepad",
            "Open a year file of the quote database in the text editor", "", "edit"},
    Command{MenuRow::Separator, "mnuEditBar2", "mnuEdit", "", "", "", ""},
    Command{MenuRow::Entry, "mnuEditCombineQuoteFiles", "mnuEdit", "Combine Quote Files",
            "Join two quote files to a third", "", "combine"},
    Command{MenuRow::Entry, "mnuEditRemoveLastUpdate", "mnuEdit", "Remove Last Update",
            "Take the last day of the last update out of the database", "", "remove-update"},
    Command{MenuRow::Separator, "mnuEditBar3", "mnuEdit", "", "", "", ""},
    Command{MenuRow::Entry, "mnuEditDelete", "mnuEdit", "Delete File", "Pick a file and delete it", "",
            "delete"},
    Command{MenuRow::Menu, "mnuView", "", "&View", "", "", ""},
    Command{MenuRow::CheckedEntry, "mnuViewToolbar", "mnuView", "&Toolbar", "Show or hide the buttons", "",
            "", kAlways, true},
    Command{MenuRow::CheckedEntry, "mnuViewStatusBar", "mnuView", "Status &Bar",
            "Show or hide the status bar", "", "", kAlways, true},
    Command{MenuRow::Separator, "mnuViewBar1", "mnuView", "", "", "", ""},
    Command{MenuRow::Entry, "mnuViewAdvanceDecline", "mnuView", "Advance Decline",
            "How many shares rose and how many fell today", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewDowngrades", "mnuView", "Downgrades",
            "Shares that analysts think less of than before", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewEconomicCalander", "mnuView", "Economic Calander",
            "The economic figures that are due", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewEarnings", "mnuView", "&Earnings",
            "The companies that report their earnings", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewInPlay", "mnuView", "In Play", "What moves the market today", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuViewIPOs", "mnuView", "IPO's", "Companies that go public", "", "", kAlways,
            true},
    Command{MenuRow::Entry, "mnuViewMarketOverview", "mnuView", "&Market Overview", "The market at a glance",
            "", "browser", kAlways, true},
    Command{MenuRow::Entry, "mnuViewMostActiveAMEX", "mnuView", "Most Active: AMEX",
            "The most traded shares of the AMEX", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewMostActiveNYSE", "mnuView", "Most Active: NYSE",
            "The most traded shares of the NYSE", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewMostActiveNasdq", "mnuView", "Most Active: NASDQ",
            "The most traded shares of the NASDAQ", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewSplits", "mnuView", "&Splits", "The stock splits of these days", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuViewStockScreener", "mnuView", "Stock Screener",
            "Find shares by their figures", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewSymbolSearch", "mnuView", "S&ymbol Search",
            "Find a company's ticker symbol", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewUSIndices", "mnuView", "U.S. Indices", "The indices of the United States",
            "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewUpgrades", "mnuView", "Upgrades",
            "Shares that analysts think more of than before", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuViewWorldIndices", "mnuView", "World Indices", "The indices of the world", "",
            "", kAlways, true},
    Command{MenuRow::Separator, "mnuViewBar2", "mnuView", "", "", "", ""},
    Command{MenuRow::Entry, "mnuViewBrokererageFirm", "mnuView", "Bro&kerage Firm",
            "Open your brokerage firm's page in your browser", "", "trade", kAlways, true},
    Command{MenuRow::Menu, "mnuSettings", "", "&Settings", "", "", ""},
    Command{MenuRow::Entry, "mnuSettingsApplication", "mnuSettings", "Application",
            "Choose how Brantlow collects, keeps and shows its data", "Ctrl+,", "settings"},
    Command{MenuRow::Entry, "mnuSettingsStockSelector", "mnuSettings", "&Stock Selector",
            "Put together the ten conditions of the Stock Selector", "Shift+F9", "conditions"},
    Command{MenuRow::Menu, "mnuGraphics", "", "&Graphics", "", "", ""},
    Command{MenuRow::Entry, "mnuGraphicsHLC", "mnuGraphics", "High, Low, Close",
            "Chart the selected ticker with its high, low and close", "Ctrl+G", "chart-hlc"},
    Command{MenuRow::Entry, "mnuGraphicsCandleStick", "mnuGraphics", "Candle Stick",
            "Chart the selected ticker with candlesticks", "Ctrl+Shift+G", "chart-candlestick"},
    Command{MenuRow::Entry, "mnuEvaluatePickStocks", "", "St&ock Selector",
            "Mark every ticker of the quote file Buy, Sell or Hold", "F9", "selector",
            kWithDdq | kWithNothing},
    Command{MenuRow::Entry, "mnuExtendedFundamentals", "", "E&xtended Fundamentals",
            "Collect the fundamental figures of every ticker of the quote file", "Shift+F5", "fundamentals",
            kWithDdq},
    Command{MenuRow::Menu, "mnuWindow", "", "&Window", "", "", ""},
    Command{MenuRow::Entry, "mnuWindowCascade", "mnuWindow", "&Cascade", "Lay the windows one over another",
            "", "cascade", kAlways, true},
    Command{MenuRow::Entry, "mnuWindowTileHorizontal", "mnuWindow", "Tile &Horizontal",
            "Lay the windows one below another", "", "tile-horizontal", kAlways, true},
    Command{MenuRow::Entry, "mnuWindowTileVertical", "mnuWindow", "Tile &Vertical",
            "Lay the windows side by side", "", "tile-vertical", kAlways, true},
    Command{MenuRow::Entry, "mnuWindowArrangeIcons", "mnuWindow", "&Arrange Icons",
            "Line up the minimised windows", "", "", kAlways, true},
    Command{MenuRow::Menu, "mnuHelp", "", "&Help", "", "", ""},
    Command{MenuRow::Entry, "mnuHelpFile", "mnuHelp", "&Help File",
            "Open the help at its contents (F1: at the page of the window in front)", "", "help", kAlways,
            true},
    Command{MenuRow::Entry, "mnuHelpIndex", "mnuHelp", "Help &Index", "Open the help at its index", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "SetupWizard", "mnuHelp", "Setup Wizard", "Walk through the basic settings", "",
            "wizard"},
    Command{MenuRow::Entry, "mnuHelpAbout", "mnuHelp", "&About ", "The program and its version", "",
            "brantlow"},
    Command{MenuRow::Entry, "mnuHelpDisclaimer", "mnuHelp", "Terms, Conditions, and Disclaimer",
            "The terms on which the program is used", "", ""},
    Command{MenuRow::Entry, "mnuHelpBrantlowUpdates", "mnuHelp", "Brantlow Updates",
            "Look for a newer version of the program", "", "version-update"},
    Command{MenuRow::Entry, "mnuHelpQuestions", "mnuHelp", "Common Questions",
            "The answers to common questions, in your browser", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuHelpUsersForum", "mnuHelp", "User's Forum", "Talk to other users", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuHelpSupport", "mnuHelp", "Support",
            "Write to Brantlow's support, in your browser", "", "", kAlways, true},
    Command{MenuRow::ButtonOnly, "FundamentalData", "", "Extended Fundamental Data",
            "Collect the fundamental figures of every ticker of the quote file", "", "fundamentals"},
    Command{MenuRow::ButtonOnly, "SortAscending", "", "Sort Ascending",
            "Sort the table by its current column, smallest first", "Alt+Up", "sort-ascending", kWithTable},
    Command{MenuRow::ButtonOnly, "SortDescending", "", "Sort Descending",
            "Sort the table by its current column, largest first", "Alt+Down", "sort-descending", kWithTable},
    Command{MenuRow::ButtonOnly, "Graphics", "", "Graphics",
            "Chart the selected ticker in the style of the last chart", "F8", "chart"},
    Command{MenuRow::PopUpMenu, "mnuPopUp", "", "&PopUp", "", "", ""},
    Command{MenuRow::Menu, "mnuPopUpGraph", "mnuPopUp", "Graph", "", "", "chart"},
    Command{MenuRow::Entry, "mnuPopUpGraphicsHLC", "mnuPopUpGraph", "High, Low, Close",
            "Chart this ticker with its high, low and close", "", "chart-hlc"},
    Command{MenuRow::Entry, "mnuPopUpGraphicsCandleStick", "mnuPopUpGraph", "Candle Stick",
            "Chart this ticker with candlesticks", "", "chart-candlestick"},
    Command{MenuRow::Menu, "mnuPopUpSplitAdjustment", "mnuPopUp", "Split Adjustment", "", "", "split"},
    Command{MenuRow::Entry, "mnuPopUpSplitAdjustmentMakeAdjustment", "mnuPopUpSplitAdjustment",
            "Make Adjustment", "Restate the ticker's history after a stock split", "", "", kWithTable},
    Command{MenuRow::Entry, "mnuPopUpSplitAdjustmentExit", "mnuPopUpSplitAdjustment", "Exit",
            "Leave the history as it is", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpTrade", "mnuPopUp", "Trade",
            "Open your brokerage firm's page in your browser", "", "trade", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpExportHistQuotes", "mnuPopUp", "Export Historical Quotes",
            "Export the ticker's history to another program", "", "export"},
    Command{MenuRow::Separator, "mnuPopUpBar1", "mnuPopUp", "", "", "", ""},
    Command{MenuRow::Entry, "mnuPopUpAnalyst", "mnuPopUp", "Analyst", "What analysts say of the ticker", "",
            "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpChart", "mnuPopUp", "Chart", "The ticker's chart on the web", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpCompetitors", "mnuPopUp", "Competitors", "The company's competitors", "",
            "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpDetailedQuote", "mnuPopUp", "Detailed Quote",
            "The ticker's quote in full", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpFinancials", "mnuPopUp", "Financials",
            "The company's balance sheet and income", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpKeyStatistics", "mnuPopUp", "Key Fundamentals",
            "The company's key figures", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpIndustry", "mnuPopUp", "Industry", "The company's industry", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpInsiderTrading", "mnuPopUp", "Insider Trading",
            "What insiders bought and sold", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpMessageBoard", "mnuPopUp", "MessageBoard",
            "What others write about the ticker", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpNews", "mnuPopUp", "News", "The latest headlines", "", "", kAlways,
            true},
    Command{MenuRow::Entry, "mnuPopUpProfile", "mnuPopUp", "Profile", "What the company does", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpOptions", "mnuPopUp", "Options", "Options on the ticker", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpOwnership", "mnuPopUp", "Ownership", "Who holds the shares", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpRealTimeQuote", "mnuPopUp", "Real Time Quote",
            "The ticker's quote of this moment", "", "", kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpReports", "mnuPopUp", "Reports", "Reports on the ticker", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpResearch", "mnuPopUp", "Research", "Research on the ticker", "", "",
            kAlways, true},
    Command{MenuRow::Entry, "mnuPopUpSECFilings", "mnuPopUp", "SEC Filings",
            "What the company filed with the SEC", "", "", kAlways, true},
};

// A picture button of the frame; its tool tip is the only word it has.
struct Button {
    std::string_view id;
    std::string_view toolTip;
    std::string_view command;  // it does what this entry does
    bool startsGroup = false;
    // Not shown before the first end-of-day table is opened, and shown and enabled ever after.
    bool waitsForQuoteFile = false;
};

inline constexpr std::array kButtons = {
    Button{"Command22", "Create New EOD Quote File", "mnuFileNewEODQuoteFile"},
    Button{"Command5", "Open EOD Quote File", "mnuFileOpenQuotesDB"},
    Button{"Command6", "Open Evaluation File", "mnuFileOpenEvaluationDB"},
    Button{"Command24", "Open Extended Fundamental File", "mnuFileOpenExtendedFundamental"},
    Button{"Command8", "Save File", "mnuFileSave", true},
    Button{"Command7", "Close File", "mnuFileClose"},
    Button{"Command9", "Print Preveiw Browser", "mnuFilePrintPreview", true},
    Button{"Command10", "Print", "mnuFilePrint"},
    Button{"Command11", "Delete File", "mnuEditDelete"},
    Button{"Command14", "Back Up Quote Database", "mnuEditBackUpQuoteDatabase", true},
    Button{"Command15", "Back Up Program Files", "mnuEditBackUpProgramFiles"},
    Button{"Command16", "Restore Backed Up Quote Database", "mnuEditRestoreQuoteDatabase"},
    Button{"Command17", "Restore Backed Up Program Files", "mnuEditRestoreProgramFiles"},
    Button{"Command1", "Graphics", "Graphics", true},
    Button{"Command4", "Stock Selector", "mnuEvaluatePickStocks", false, true},
    Button{"Command23", "Extended Fundamental Data", "FundamentalData", false, true},
    Button{"Command18", "Browser Market Overiew", "mnuViewMarketOverview", true},
    Button{"Command12", "Sort Ticker Symbols Ascending", "SortAscending", true},
    Button{"Command13", "Sort Ticker Symbols Decending", "SortDescending"},
    Button{"Command19", "Brantlow Update", "mnuHelpBrantlowUpdates"},
    Button{"Command21", "Help", "mnuHelpFile"},
    Button{"Command20", "Exit", "mnuFileExit", true},
};

// The row of this name, or null.
const Command* FindCommand(std::string_view id);

// Whether an entry is enabled; `inRun` while a run is paused, which is the only time in a run that a person
// can reach the menu.
bool IsEnabled(const Command& command, OpenStates state, bool inRun);

}  // namespace brantlow
