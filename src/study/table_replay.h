// The chart's Buy and Sell pair replayed over every ticker of a table, each as its own chart would replay it:
// the sums of all and the list of trades. The batch tool prints it, the study window shows it.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/failure.h"
#include "chart/back_test.h"
#include "indicators/working_series.h"
#include "shell/session.h"

namespace brantlow {

// The numbers of a replay by the names under which they are printed.
struct BackTestNumber {
    std::string_view name;
    double BackTest::*value;
};
inline constexpr std::array<BackTestNumber, 6> kBackTestNumbers = {{
    {"SharesBought", &BackTest::SharesBought},
    {"SharesSold", &BackTest::SharesSold},
    {"BuyCost", &BackTest::BuyCost},
    {"SellValue", &BackTest::SellValue},
    {"HeldValue", &BackTest::HeldValue},
    {"Profit", &BackTest::Profit},
}};

struct TableTrade {
    std::string ticker;
    std::optional<Date> date;  // of the bar that is traded at; nothing after a signal on the newest bar
    BackTestTrade trade;
};

struct TableReplay {
    BackTest sums;            // its list of trades is not filled
    std::size_t asked = 0;    // different tickers of the table
    std::size_t tickers = 0;  // that were replayed
    std::size_t traded = 0;   // with at least one trade
    std::size_t gained = 0;
    std::size_t lost = 0;
    std::vector<TableTrade> trades;  // in table order, each ticker's by its bars
    std::vector<Failure> leftOut;    // a ticker each whose files cannot be read
    bool stopped = false;            // ended before the last ticker
};

// Before each ticker: how many are done of how many; false ends the replay.
using ReplayGoesOn = std::function<bool(std::size_t done, std::size_t all)>;

// A ticker that stands in the table twice counts once. Both sides need a condition (RefuseBackTest).
TableReplay ReplayTable(Session& session, const std::vector<std::string>& tickers, Interval interval,
                        const ReplayGoesOn& goesOn);

}  // namespace brantlow
