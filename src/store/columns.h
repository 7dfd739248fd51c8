// The columns of the table files: headers, widths and written forms. Readers, writers, the window and the
// row calculation all go by these tables.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "shell/settings/condition_set.h"

namespace brantlow {

// One column of a quote table.
struct QuoteColumn {
    std::string_view header;
    int width;                 // twips at which the column is shown
    std::string_view picture;  // number picture of its cells; empty for text that stands as it is
};

inline constexpr std::string_view kPricePicture = "#####0.000";
inline constexpr std::string_view kTwoPlaces = "#########0.00";
inline constexpr std::string_view kThreePlaces = "#########0.000";
inline constexpr std::string_view kFivePlaces = "#########0.00000";
inline constexpr std::string_view kMillionsPicture = "######0.###";

// The columns of a quote table in the order of the template.
inline constexpr std::array<QuoteColumn, 35> kQuoteColumns = {{
    {"Ticker Symbol", 1300, ""},
    {"Last Price", 1100, kPricePicture},
    {"Change", 1100, kPricePicture},
    {"Change (%)", 1100, kPricePicture},
    {"Ask Price", 1100, kPricePicture},
    {"Bid Price", 1100, kPricePicture},
    {"Low Price", 1100, kPricePicture},
    {"High Price", 1100, kPricePicture},
    {"Volume", 1200, ""},
    {"Open Price", 1100, kPricePicture},
    {"Previous Close", 1400, kPricePicture},
    {"52 Week Low", 1300, kPricePicture},
    {"52 Week High", 1300, kPricePicture},
    {"Name", 2000, ""},
    {"Exchange", 1000, ""},
    {"Trade Date", 1300, ""},
    {"Trade Time", 1300, ""},
    {"P/E ttm.", 1000, kPricePicture},
    {"P/E est.", 1000, kTwoPlaces},
    {"EPS ttm.", 1000, kPricePicture},
    {"EPS est.", 1000, kPricePicture},
    {"SPS", 1000, kFivePlaces},
    {"E/S", 1000, kFivePlaces},
    {"PEG", 1000, kPricePicture},
    {"P/S", 1000, kPricePicture},
    {"Dividend", 1000, kPricePicture},
    {"Yield (%)", 1000, kPricePicture},
    {"Dividend Date", 1400, ""},
    {"X Dividend Date", 1600, ""},
    {"Market Cap (M)", 1400, kMillionsPicture},
    {"Annual Sales (M)", 1600, kTwoPlaces},
    {"Annual Earnings (M)", 1800, kThreePlaces},
    {"Annual Earnings est. (M)", 1900, kThreePlaces},
    {"High Alarm", 1000, ""},
    {"Low Alarm", 1000, ""},
}};

// The columns of a selector run's file.
inline constexpr std::array<std::string_view, 11> kEvaluationColumns = {
    "Ticker Symbol", "Condition 1", "Condition 2", "Condition 3", "Condition 4", "Condition 5",
    "Condition 6",   "Condition 7", "Condition 8", "Condition 9", "Condition 10"};

inline constexpr std::size_t kFundamentalColumnCount = 59;

// The header of an extended fundamentals file, in three pieces that join to one line.
extern const std::string_view EfqHeader1;  // names 1 to 29 and a closing tab
extern const std::string_view EfqHeader2;  // names 30 to 54 and a closing tab
extern const std::string_view EfqHeader3;  // names 55 to 59
std::string EfqHeader();

// The header lines of the other two kinds.
std::string QuoteHeader();
std::string EvaluationHeader();

// Widths in twips of the columns before any settings: the ticker's and all others'.
inline constexpr int kTickerWidth = 1300;
inline constexpr int kHiddenWidth = 0;
inline constexpr int kConditionWidth = 1350;
inline constexpr int kFundamentalWidth = 1200;

// The width at which column `column` of a fundamentals file is shown, by the length of its name; 0 outside
// the columns 1 to 58.
int FundamentalWidth(std::size_t column);

// The catalogue's column with this header, or nothing.
const QuoteColumn* FindQuoteColumn(std::string_view header);

}  // namespace brantlow
