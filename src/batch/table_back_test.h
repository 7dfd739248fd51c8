// The chart's Buy and Sell pair replayed over every ticker of a table: its sums and the list of trades as one
// JSON object. For the backtest command with a FILE.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "batch/command.h"
#include "chart/back_test.h"

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

// Each ticker as its own chart would replay it. A ticker that stands in the table twice counts once; one
// whose files cannot be read is left out and told. Ctrl-C prints what there is.
ExitStatus BackTestTable(BatchCall& call, const std::string& name);

}  // namespace brantlow
