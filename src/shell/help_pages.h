// Which page of the help, an HTML file in Help/ of the application folder, belongs to which window.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kHelpContents = "contents.html";
inline constexpr std::string_view kHelpIndex = "index.html";

// Which page F1 opens in a window, by the window's name, and where on the page: "page.html#place", the page
// alone where all of it is meant.
struct WindowHelp {
    std::string_view window;
    std::string_view page;
};
inline constexpr std::array<WindowHelp, 37> kWindowHelp = {{
    {"frmQuoteGrid", "tables.html"},
    {"frmDeleteQuoteDataBase", "tables.html#add"},
    {"frmDeleteFile", "files.html#delete"},
    {"frmCheckDatabase", "files.html#check"},
    {"TextEditor", "files.html"},
    {"frmPopulate", "update.html#populate"},
    {"frmSchedule", "update.html#schedule"},
    {"frmLastRun", "update.html#told"},
    {"frmLowMemory", "update.html#memory"},
    {"frmAdjustSplits", "splits.html#calendar"},
    {"frmSplitFactor", "splits.html#manual"},
    {"frmSelectorSelection", "selector.html"},
    {"frmErrorReport", "selector.html#guard"},
    {"frmStockSelectorSettings", "selector.html#families"},
    {"ConditionOverview", "selector.html#condition"},
    {"ExplainPane", "selector.html#why"},
    {"frmStudy", "selector.html#study"},
    {"frmGraph", "chart.html"},
    {"frmGraphNoData", "chart.html#nodata"},
    {"frmReturn", "chart.html#backtest"},
    {"frmApplicationSettings", "settings.html"},
    {"frmSetupWizard", "settings.html#wizard"},
    {"frmVersionUpdate", "settings.html#version"},
    {"frmSources", "sources.html#window"},
    {"frmImportHistory", "sources.html#archive"},
    {"frmNewList", "start.html#list"},
    {"WelcomePage", "start.html#window"},
    {"frmEnable", "start.html#runs"},
    {"frmCommandPalette", "start.html#palette"},
    {"frmKeys", "start.html#keys"},
    {"frmBrowser", "start.html#research"},
    {"frmForumLogin", "start.html#research"},
    {"frmAbout", "start.html"},
    {"frmDisclaimer", "start.html"},
    {"frmFiredAlarms", "alarms.html#fired"},
    {"frmAlarmMail", "alarms.html#mail"},
    {"TextViewer", "files.html"},
}};

// The page, and the place on it, of the window of this name; the contents for any other.
std::string_view HelpPageOf(std::string_view window);

}  // namespace brantlow
