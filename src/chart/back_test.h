// The back-test: the chart's Buy and Sell signals replayed as trades of one lot over the bars of the window.
// The report frmReturn and the batch tool show it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart_session.h"
#include "indicators/working_series.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// The number picture of the report's amounts.
inline constexpr std::string_view kMoneyPicture = "$#.00";

// One trade of the replay, in the order of the bars.
struct BackTestTrade {
    // The side's action.
    std::string_view action;
    // The bar of the signal; the trade is made at the close of the bar after it.
    std::size_t signalBar = 0;
    // That close; 0 after a signal on the newest bar, for which there is no next close yet.
    double price = 0;
    // Of the lot, commission added to what is paid and taken off what is received.
    double amount = 0;
};

struct BackTest {
    double SharesBought = 0;
    double SharesSold = 0;
    double BuyCost = 0;
    double SellValue = 0;
    // What remains, at the newest close, without a sale's commission.
    double HeldValue = 0;
    double Profit = 0;
    std::vector<BackTestTrade> trades;
};

// What is said when a side has no condition: there is nothing to replay then. Nothing when both have one.
std::optional<std::string_view> RefuseBackTest(const SettingsTables& settings);

// Walks bars 1 to BarCount. The first trade is a purchase and the sides take turns.
BackTest RunBackTest(const WorkingSeries& series, const ChartSession& session);

// A computed text of the report and the label that shows it.
struct BackTestLabel {
    std::string_view control;
    std::string text;
};

// In the report's order. Averages are those of a lot of 1000 shares, commission included, and so is the base
// of the return on investment. An average of nothing is empty, and so is a return that cannot be computed;
// without any trade a sentence says so.
std::vector<BackTestLabel> BackTestLabels(const BackTest& test, const SettingsTables& settings);

}  // namespace brantlow
