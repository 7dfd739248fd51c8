// The lists of names that settings files hold by default behind their numbered lines (those are in lines.h),
// and with them the vocabulary of columns and supplier fields, once for every room.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brantlow {

// Columns of the quote table in the default order; the ticker column is always there and never named.
inline constexpr std::array<std::string_view, 34> kDefaultColumns = {
    "Last Price",
    "Change",
    "Change (%)",
    "Ask Price",
    "Bid Price",
    "Low Price",
    "High Price",
    "Volume",
    "Open Price",
    "Previous Close",
    "52 Week Low",
    "52 Week High",
    "Name",
    "Exchange",
    "Trade Date",
    "Trade Time",
    "P/E ttm.",
    "P/E est.",
    "EPS ttm.",
    "EPS est.",
    "SPS",
    "E/S",
    "PEG",
    "P/S",
    "Dividend",
    "Yield (%)",
    "Dividend Date",
    "X Dividend Date",
    "Market Cap (M)",
    "Annual Sales (M)",
    "Annual Earnings (M)",
    "Annual Earnings est. (M)",
    "High Alarm",
    "Low Alarm",
};

inline constexpr std::string_view kTickerColumn = "Ticker Symbol";

// Markers of the field sequences.
inline constexpr std::string_view kStartEod = "StartEOD";
inline constexpr std::string_view kEndEod = "EndEOD";
inline constexpr std::string_view kStartHistory = "StartH";
inline constexpr std::string_view kEndHistory = "EndH";
inline constexpr std::string_view kEndExportFile = "End Export File";
inline constexpr std::string_view kEndImportFile = "End Import File";

// The End-of-Day fields in the order in which the built-in source sends them.
inline constexpr std::array<std::string_view, 25> kDefaultEodSequence = {
    "Ticker Symbol", "Last Price", "Trade Date",     "Trade Time",      "Dividend Date",
    "Change",        "Name",       "Exchange",       "X Dividend Date", "Ask Price",
    "Bid Price",     "Open Price", "High Price",     "Dividend",        "52 Week Low",
    "52 Week High",  "EPS ttm.",   "Low Price",      "P/E ttm.",        "Volume",
    "PEG",           "EPS est.",   "Previous Close", "Market Cap (M)",  "P/S",
};

// "Variable" stands for a field to be skipped.
inline constexpr std::array<std::string_view, 7> kDefaultHistorySequence = {
    "Trade Date", "Open Price", "High Price", "Low Price", "Last Price", "Volume", "Variable",
};

// The export writes the ticker and every column but the two alarms.
inline constexpr std::size_t kExportedColumns = 32;
inline constexpr std::array<std::string_view, kExportedColumns + 1> kDefaultExportSequence = [] {
    std::array<std::string_view, kExportedColumns + 1> sequence{};
    sequence[0] = kTickerColumn;
    for (std::size_t i = 0; i < kExportedColumns; ++i) sequence[i + 1] = kDefaultColumns[i];
    return sequence;
}();

inline constexpr std::array<std::string_view, 6> kDefaultImportSequence = {
    "Ticker Symbol", "Last Price", "Trade Date", "High Price", "Low Price", "Volume",
};

}  // namespace brantlow
