// Which page of the help, an HTML file in Help/ of the application folder, belongs to which window.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kHelpContents = "contents.html";
inline constexpr std::string_view kHelpIndex = "index.html";

// Which page F1 opens in a window, by the window's name.
struct WindowHelp {
    std::string_view window;
    std::string_view page;
};
inline constexpr std::array<WindowHelp, 30> kWindowHelp = {{
    {"frmQuoteGrid", "tables.html"},
    {"frmDeleteQuoteDataBase", "tables.html"},
    {"frmDeleteFile", "files.html"},
    {"TextEditor", "files.html"},
    {"frmPopulate", "update.html"},
    {"frmSchedule", "update.html"},
    {"frmAdjustSplits", "splits.html"},
    {"frmSplitFactor", "splits.html"},
    {"frmSelectorSelection", "selector.html"},
    {"frmErrorReport", "selector.html"},
    {"frmStockSelectorSettings", "selector.html"},
    {"frmStudy", "selector.html"},
    {"frmGraph", "chart.html"},
    {"frmGraphNoData", "chart.html"},
    {"frmReturn", "chart.html"},
    {"frmApplicationSettings", "settings.html"},
    {"frmSetupWizard", "settings.html"},
    {"frmSources", "sources.html"},
    {"frmImportHistory", "sources.html"},
    {"frmNewList", "start.html"},
    {"frmBrowser", "start.html"},
    {"frmVersionUpdate", "settings.html"},
    {"frmAbout", "start.html"},
    {"frmKeys", "start.html"},
    {"frmCommandPalette", "start.html"},
    {"frmDisclaimer", "start.html"},
    {"frmLowMemory", "update.html"},
    {"frmEnable", "selector.html"},
    {"frmFiredAlarms", "alarms.html"},
    {"frmAlarmMail", "alarms.html"},
}};

// The page of the window of this name; the contents for any other.
std::string_view HelpPageOf(std::string_view window);

}  // namespace brantlow
