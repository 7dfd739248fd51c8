// The value slots as the condition editor lays them out: one row for each quantity, with the slot that wants
// it at least X and the slot that wants it at most X, under the heading of its group, and what the quantity
// is. The slots' own labels stand in selector/value_slots.h.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brantlow {

struct SlotRow {
    std::string_view group;
    std::size_t atLeast;  // slot, 1 to 38; 0 where the quantity has none
    std::size_t atMost;
    std::string_view meaning;
};

inline constexpr std::array<SlotRow, 20> kSlotRows = {{
    {"Volume", 1, 0, "The volume of the newest bar as a multiple of the average volume of the window."},
    {"Trend of the price", 2, 7,
     "Slope of the moving regression over 15 bars, in percent per year of 240 bars of the close 15 bars "
     "ago."},
    {"Trend of the price", 3, 8,
     "Slope of the moving regression over 30 bars, in percent per year of 240 bars of the close 30 bars "
     "ago."},
    {"Trend of the price", 4, 9,
     "Slope of the moving regression over 60 bars, in percent per year of 240 bars of the close 60 bars "
     "ago."},
    {"Trend of the price", 5, 10,
     "Slope of the moving regression over 90 bars, in percent per year of 240 bars of the close 90 bars "
     "ago."},
    {"Trend of the price", 6, 11,
     "Slope of the moving regression over 120 bars, in percent per year of 240 bars of the close 120 bars "
     "ago."},
    {"Trend of the price", 12, 13,
     "Slope of the regression line through the whole window, in percent per year of 240 bars of the first "
     "close."},
    {"Trend of the price", 35, 37,
     "How fast the 30 bar moving regression line rises over its last four bars, in percent per year of 240 "
     "bars of the close."},
    {"Trend of the price", 36, 38,
     "How fast the 60 bar moving regression line rises over its last four bars, in percent per year of 240 "
     "bars of the close."},
    {"Change and yield", 14, 15, "Change of the close from the bar before to the newest bar, in percent."},
    {"Change and yield", 16, 0, "Dividend per share, in percent of the close."},
    {"Valuation", 17, 18, "Price of a share over the earnings per share of the last twelve months."},
    {"Valuation", 19, 20, "Price of a share over the sales per share of the last twelve months."},
    {"Valuation", 25, 26, "P/E over the expected yearly growth of earnings, in percent."},
    {"Earnings and sales", 21, 22, "Earnings per share of the last twelve months."},
    {"Earnings and sales", 23, 24, "Earnings per share as analysts expect them."},
    {"Earnings and sales", 27, 28, "Sales per share: the close of the bar before over P/S."},
    {"Earnings and sales", 29, 30, "Earnings as a share of sales: P/S over P/E."},
    {"Earnings and sales", 31, 32,
     "Change from the earnings per share of the last twelve months to the expected ones, in percent."},
    {"Earnings and sales", 33, 34,
     "Close over expected earnings per share, less the growth that P/E over PEG stands for, times 100."},
}};

}  // namespace brantlow
