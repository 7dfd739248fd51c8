// The pages of the help, HTML files in Help/ of the application folder, and which of them belongs to which
// window.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kHelpContents = "contents.html";
inline constexpr std::string_view kHelpIndex = "index.html";

struct HelpPage {
    std::string_view file;
    std::string_view title;
};

// In the order of the contents page.
inline constexpr std::array<HelpPage, 12> kHelpPages = {{
    {"start.html", "First steps"},
    {"tables.html", "Quote tables"},
    {"update.html", "Updating quotes"},
    {"selector.html", "The Stock Selector"},
    {"values.html", "The value slots of a condition"},
    {"chart.html", "The chart"},
    {"studies.html", "Series and studies with their formulas"},
    {"splits.html", "Stock splits"},
    {"alarms.html", "Price alarms"},
    {"settings.html", "Settings and the wizard"},
    {"batch.html", "The batch tool"},
    {"files.html", "Files and folders"},
}};

// Which page F1 opens in a window, by the window's name.
struct WindowHelp {
    std::string_view window;
    std::string_view page;
};
inline constexpr std::array<WindowHelp, 22> kWindowHelp = {{
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
    {"frmGraph", "chart.html"},
    {"frmGraphNoData", "chart.html"},
    {"frmReturn", "chart.html"},
    {"frmApplicationSettings", "settings.html"},
    {"frmSetupWizard", "settings.html"},
    {"frmBrowser", "start.html"},
    {"frmVersionUpdate", "settings.html"},
    {"frmAbout", "start.html"},
    {"frmDisclaimer", "start.html"},
    {"frmLowMemory", "update.html"},
    {"frmEnable", "selector.html"},
}};

// The page of the window of this name; the contents for any other.
std::string_view HelpPageOf(std::string_view window);

}  // namespace brantlow
