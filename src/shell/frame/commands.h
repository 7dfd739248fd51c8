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
struct MenuEntry {
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
    MenuEntry{MenuRow::Menu, "mnuFile", "", "&File", "", "", ""},
    MenuEntry{MenuRow::Menu, "mnuFileNew", "mnuFile", "&New Quote File", "", "", "new"},
    MenuEntry{MenuRow::Entry, "mnuFileNewEODQuoteFile", "mnuFileNew", "New End of Day Quote File",
              "Create a new, empty end of day quote file", "Ctrl+N", "new"},
    MenuEntry{MenuRow::Entry, "mnuFileNewCreateMarketQuoteFile", "mnuFileNew", "Create Market Quote File",
              "Start the program that creates the quote file of a whole market", "", ""},
    MenuEntry{MenuRow::Separator, "mnuFileBar1", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuFileOpenQuotesDB", "mnuFile", "Open End of Day Quote File",
              "Open an end of day quote file", "Ctrl+O", "open-quotes"},
    MenuEntry{MenuRow::Entry, "mnuFileOpenEvaluationDB", "mnuFile", "Open Stock Selector File",
              "Open the saved results of a Stock Selector run", "Ctrl+Shift+O", "open-evaluation"},
    MenuEntry{MenuRow::Entry, "mnuFileOpenExtendedFundamental", "mnuFile", "Open Ext Fundamanental File",
              "Open a file of extended fundamental data", "Ctrl+Alt+O", "open-fundamental"},
    MenuEntry{MenuRow::Separator, "mnuFileBar2", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuFileClose", "mnuFile", "&Close", "Close the open file", "Ctrl+W", "close",
              kWithTable | kWithPicture},
    MenuEntry{MenuRow::Entry, "mnuFileSave", "mnuFile", "&Save", "Save the open file", "Ctrl+S", "save",
              kWithKind | kWithPicture, true},
    MenuEntry{MenuRow::Entry, "mnuFileSaveAs", "mnuFile", "Save &As...",
              "Save the open file under another name", "Ctrl+Shift+S", "save-as", kWithKind | kWithPicture},
    MenuEntry{MenuRow::Separator, "mnuFileBar4", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuFilePopulate", "mnuFile", "Populate Database",
              "Download the history of every ticker of the quote file", "", "populate", kWithDdq},
    MenuEntry{MenuRow::Entry, "mnuFileImportQuotes", "mnuFile", "Import File",
              "Import quotes from another program's file", "Ctrl+I", "import", kWithDdq | kWithNothing},
    MenuEntry{MenuRow::Entry, "mnuFileExportQuotes", "mnuFile", "&Export File",
              "Export the open file to another program", "Ctrl+E", "export",
              kWithDdq | kWithDbe | kWithEfq | kWithNothing},
    MenuEntry{MenuRow::Entry, "mnuFileUpdateQuotes", "mnuFile", "Update Quotes",
              "Fetch the day's quotes of every ticker of the quote file", "F5", "update", kWithDdq | kWithDb},
    MenuEntry{MenuRow::Separator, "mnuFileBar5", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuFilePrintPreview", "mnuFile", "Print Preview Browser",
              "Show the browser's page as it would be printed", "", "print-preview", kBrowserActive},
    MenuEntry{MenuRow::Entry, "mnuFilePrint", "mnuFile", "&Print...", "Print the active window", "Ctrl+P",
              "print", kWithDdq | kWithDbe | kWithEfq | kWithPicture, true},
    MenuEntry{MenuRow::Entry, "mnuFilePageSetup", "mnuFile", "Page Set&up...",
              "Choose the printer and the form of the page", "", "page-setup", kAlways, true},
    MenuEntry{MenuRow::RecentFiles, "mnuFileMRU", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Separator, "mnuFileBar3", "mnuFile", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuFileExit", "mnuFile", "E&xit", "Leave Brantlow", "Ctrl+Q", "exit", kAlways,
              true},
    MenuEntry{MenuRow::Menu, "mnuEdit", "", "&Edit", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuEditBackUpProgramFiles", "mnuEdit", "BackUp Program Files",
              "Copy tables and settings to the back-up folder", "", "back-up-program"},
    MenuEntry{MenuRow::Entry, "mnuEditBackUpQuoteDatabase", "mnuEdit", "BackUp Quote Database",
              "Copy the quote database to the back-up folder", "", "back-up-database"},
    MenuEntry{MenuRow::Entry, "mnuEditRestoreProgramFiles", "mnuEdit", "Restore Program Files",
              "Copy tables and settings back from the back-up folder", "", "restore-program"},
    MenuEntry{MenuRow::Entry, "mnuEditRestoreQuoteDatabase", "mnuEdit", "Restore Quote Database",
              "Copy the quote database back from the back-up folder", "", "restore-database"},
    MenuEntry{MenuRow::Entry, "mnuEditSplitAdjustment", "mnuEdit", "Split Adjustment",
              "Restate the history of the selected ticker after a stock split", "", "split", kWithTable},
    MenuEntry{MenuRow::Separator, "mnuEditBar1", "mnuEdit", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuEditEditQuoteFiles", "mnuEdit", "Edit Quote Files with  Notepad",
              "Open a quote file in the text editor", "", "edit"},
    MenuEntry{MenuRow::Entry, "mnuEditEditDatabaseFiles", "mnuEdit", "Edit Database Files with  Notepad",
              "Open a year file of the quote database in the text editor", "", "edit"},
    MenuEntry{MenuRow::Separator, "mnuEditBar2", "mnuEdit", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuEditCombineQuoteFiles", "mnuEdit", "Combine Quote Files",
              "Join two quote files to a third", "", "combine"},
    MenuEntry{MenuRow::Entry, "mnuEditRemoveLastUpdate", "mnuEdit", "Remove Last Update",
              "Take the last day of the last update out of the database", "", "remove-update"},
    MenuEntry{MenuRow::Separator, "mnuEditBar3", "mnuEdit", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuEditDelete", "mnuEdit", "Delete File", "Pick a file and delete it", "",
              "delete"},
    MenuEntry{MenuRow::Menu, "mnuView", "", "&View", "", "", ""},
    MenuEntry{MenuRow::CheckedEntry, "mnuViewToolbar", "mnuView", "&Toolbar", "Show or hide the buttons", "",
              "", kAlways, true},
    MenuEntry{MenuRow::CheckedEntry, "mnuViewStatusBar", "mnuView", "Status &Bar",
              "Show or hide the status bar", "", "", kAlways, true},
    MenuEntry{MenuRow::Separator, "mnuViewBar1", "mnuView", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuViewAdvanceDecline", "mnuView", "Advance Decline",
              "How many shares rose and how many fell today", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewDowngrades", "mnuView", "Downgrades",
              "Shares that analysts think less of than before", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewEconomicCalander", "mnuView", "Economic Calander",
              "The economic figures that are due", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewEarnings", "mnuView", "&Earnings",
              "The companies that report their earnings", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewInPlay", "mnuView", "In Play", "What moves the market today", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewIPOs", "mnuView", "IPO's", "Companies that go public", "", "", kAlways,
              true},
    MenuEntry{MenuRow::Entry, "mnuViewMarketOverview", "mnuView", "&Market Overview",
              "The market at a glance", "", "browser", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewMostActiveAMEX", "mnuView", "Most Active: AMEX",
              "The most traded shares of the AMEX", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewMostActiveNYSE", "mnuView", "Most Active: NYSE",
              "The most traded shares of the NYSE", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewMostActiveNasdq", "mnuView", "Most Active: NASDQ",
              "The most traded shares of the NASDAQ", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewSplits", "mnuView", "&Splits", "The stock splits of these days", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewStockScreener", "mnuView", "Stock Screener",
              "Find shares by their figures", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewSymbolSearch", "mnuView", "S&ymbol Search",
              "Find a company's ticker symbol", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewUSIndices", "mnuView", "U.S. Indices",
              "The indices of the United States", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewUpgrades", "mnuView", "Upgrades",
              "Shares that analysts think more of than before", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuViewWorldIndices", "mnuView", "World Indices", "The indices of the world",
              "", "", kAlways, true},
    MenuEntry{MenuRow::Separator, "mnuViewBar2", "mnuView", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuViewBrokererageFirm", "mnuView", "Bro&kerage Firm",
              "Open your brokerage firm's page in your browser", "", "trade", kAlways, true},
    MenuEntry{MenuRow::Menu, "mnuSettings", "", "&Settings", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuSettingsApplication", "mnuSettings", "Application",
              "Choose how Brantlow collects, keeps and shows its data", "Ctrl+,", "settings"},
    MenuEntry{MenuRow::Entry, "mnuSettingsStockSelector", "mnuSettings", "&Stock Selector",
              "Put together the ten conditions of the Stock Selector", "Shift+F9", "conditions"},
    MenuEntry{MenuRow::Menu, "mnuGraphics", "", "&Graphics", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuGraphicsHLC", "mnuGraphics", "High, Low, Close",
              "Chart the selected ticker with its high, low and close", "Ctrl+G", "chart-hlc"},
    MenuEntry{MenuRow::Entry, "mnuGraphicsCandleStick", "mnuGraphics", "Candle Stick",
              "Chart the selected ticker with candlesticks", "Ctrl+Shift+G", "chart-candlestick"},
    MenuEntry{MenuRow::Entry, "mnuEvaluatePickStocks", "", "St&ock Selector",
              "Mark every ticker of the quote file Buy, Sell or Hold", "F9", "selector",
              kWithDdq | kWithNothing},
    MenuEntry{MenuRow::Entry, "mnuExtendedFundamentals", "", "E&xtended Fundamentals",
              "Collect the fundamental figures of every ticker of the quote file", "Shift+F5", "fundamentals",
              kWithDdq},
    MenuEntry{MenuRow::Menu, "mnuWindow", "", "&Window", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuWindowCascade", "mnuWindow", "&Cascade", "Lay the windows one over another",
              "", "cascade", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuWindowTileHorizontal", "mnuWindow", "Tile &Horizontal",
              "Lay the windows one below another", "", "tile-horizontal", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuWindowTileVertical", "mnuWindow", "Tile &Vertical",
              "Lay the windows side by side", "", "tile-vertical", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuWindowArrangeIcons", "mnuWindow", "&Arrange Icons",
              "Line up the minimised windows", "", "", kAlways, true},
    MenuEntry{MenuRow::Menu, "mnuHelp", "", "&Help", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuHelpFile", "mnuHelp", "&Help File",
              "Open the help at its contents (F1: at the page of the window in front)", "", "help", kAlways,
              true},
    MenuEntry{MenuRow::Entry, "mnuHelpIndex", "mnuHelp", "Help &Index", "Open the help at its index", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "SetupWizard", "mnuHelp", "Setup Wizard", "Walk through the basic settings", "",
              "wizard"},
    MenuEntry{MenuRow::Entry, "mnuHelpAbout", "mnuHelp", "&About ", "The program and its version", "",
              "brantlow"},
    MenuEntry{MenuRow::Entry, "mnuHelpDisclaimer", "mnuHelp", "Terms, Conditions, and Disclaimer",
              "The terms on which the program is used", "", ""},
    MenuEntry{MenuRow::Entry, "mnuHelpBrantlowUpdates", "mnuHelp", "Brantlow Updates",
              "Look for a newer version of the program", "", "version-update"},
    MenuEntry{MenuRow::Entry, "mnuHelpQuestions", "mnuHelp", "Common Questions",
              "The answers to common questions, in your browser", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuHelpUsersForum", "mnuHelp", "User's Forum", "Talk to other users", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuHelpSupport", "mnuHelp", "Support",
              "Write to Brantlow's support, in your browser", "", "", kAlways, true},
    MenuEntry{MenuRow::ButtonOnly, "FundamentalData", "", "Extended Fundamental Data",
              "Collect the fundamental figures of every ticker of the quote file", "", "fundamentals"},
    MenuEntry{MenuRow::ButtonOnly, "SortAscending", "", "Sort Ascending",
              "Sort the table by its current column, smallest first", "Alt+Up", "sort-ascending", kWithTable},
    MenuEntry{MenuRow::ButtonOnly, "SortDescending", "", "Sort Descending",
              "Sort the table by its current column, largest first", "Alt+Down", "sort-descending",
              kWithTable},
    MenuEntry{MenuRow::ButtonOnly, "Graphics", "", "Graphics",
              "Chart the selected ticker in the style of the last chart", "F8", "chart"},
    MenuEntry{MenuRow::PopUpMenu, "mnuPopUp", "", "&PopUp", "", "", ""},
    MenuEntry{MenuRow::Menu, "mnuPopUpGraph", "mnuPopUp", "Graph", "", "", "chart"},
    MenuEntry{MenuRow::Entry, "mnuPopUpGraphicsHLC", "mnuPopUpGraph", "High, Low, Close",
              "Chart this ticker with its high, low and close", "", "chart-hlc"},
    MenuEntry{MenuRow::Entry, "mnuPopUpGraphicsCandleStick", "mnuPopUpGraph", "Candle Stick",
              "Chart this ticker with candlesticks", "", "chart-candlestick"},
    MenuEntry{MenuRow::Menu, "mnuPopUpSplitAdjustment", "mnuPopUp", "Split Adjustment", "", "", "split"},
    MenuEntry{MenuRow::Entry, "mnuPopUpSplitAdjustmentMakeAdjustment", "mnuPopUpSplitAdjustment",
              "Make Adjustment", "Restate the ticker's history after a stock split", "", "", kWithTable},
    MenuEntry{MenuRow::Entry, "mnuPopUpSplitAdjustmentExit", "mnuPopUpSplitAdjustment", "Exit",
              "Leave the history as it is", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpTrade", "mnuPopUp", "Trade",
              "Open your brokerage firm's page in your browser", "", "trade", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpExportHistQuotes", "mnuPopUp", "Export Historical Quotes",
              "Export the ticker's history to another program", "", "export"},
    MenuEntry{MenuRow::Separator, "mnuPopUpBar1", "mnuPopUp", "", "", "", ""},
    MenuEntry{MenuRow::Entry, "mnuPopUpAnalyst", "mnuPopUp", "Analyst", "What analysts say of the ticker", "",
              "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpChart", "mnuPopUp", "Chart", "The ticker's chart on the web", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpCompetitors", "mnuPopUp", "Competitors", "The company's competitors",
              "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpDetailedQuote", "mnuPopUp", "Detailed Quote",
              "The ticker's quote in full", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpFinancials", "mnuPopUp", "Financials",
              "The company's balance sheet and income", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpKeyStatistics", "mnuPopUp", "Key Fundamentals",
              "The company's key figures", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpIndustry", "mnuPopUp", "Industry", "The company's industry", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpInsiderTrading", "mnuPopUp", "Insider Trading",
              "What insiders bought and sold", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpMessageBoard", "mnuPopUp", "MessageBoard",
              "What others write about the ticker", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpNews", "mnuPopUp", "News", "The latest headlines", "", "", kAlways,
              true},
    MenuEntry{MenuRow::Entry, "mnuPopUpProfile", "mnuPopUp", "Profile", "What the company does", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpOptions", "mnuPopUp", "Options", "Options on the ticker", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpOwnership", "mnuPopUp", "Ownership", "Who holds the shares", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpRealTimeQuote", "mnuPopUp", "Real Time Quote",
              "The ticker's quote of this moment", "", "", kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpReports", "mnuPopUp", "Reports", "Reports on the ticker", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpResearch", "mnuPopUp", "Research", "Research on the ticker", "", "",
              kAlways, true},
    MenuEntry{MenuRow::Entry, "mnuPopUpSECFilings", "mnuPopUp", "SEC Filings",
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
const MenuEntry* FindMenuEntry(std::string_view id);

// Whether an entry is enabled; `inRun` while a run is paused, which is the only time in a run that a person
// can reach the menu.
bool IsEnabled(const MenuEntry& command, OpenStates state, bool inRun);

}  // namespace brantlow
