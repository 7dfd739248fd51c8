// What each settings file holds by default, line by line. The first-run files in assets/Data are made from
// these tables, and the vocabulary of columns and supplier fields stands here once for every room.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brantlow {

// How a default stands in its file.
enum class DefaultKind {
    Text,    // written in quotes
    Number,  // written bare
    Raw,     // printed as it is
    Today,   // the date of the day on which the defaults are written
    Kept,  // text that returning to the defaults leaves as it is; `text` is what an installation starts with
    KeptRaw,  // the same for a printed line
};

struct DefaultLine {
    std::string_view text;
    DefaultKind kind = DefaultKind::Text;
};

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

// VTRDATAset.ini. The folders are relative to the application folder.
inline constexpr std::array<DefaultLine, 19> kDefaultDataSettings = {{
    {"Manually"},
    {"True"},
    {R"(Back Up\Data)", DefaultKind::Kept},
    {"True"},
    {R"(Back Up\Quotes)", DefaultKind::Kept},
    {"10", DefaultKind::Number},
    {"Automatic Save"},
    {"Automatic Save"},
    {"None"},
    {""},
    {""},
    {"Manual Updates"},
    {"", DefaultKind::Today},
    {"None"},
    {"", DefaultKind::Kept},
    {"Manual"},
    {"False"},
    {R"(Quotes\EOD)", DefaultKind::Kept},
    {"Automatic"},
}};

// VTRGRAPHset.ini: the chart's style, its first panel, its six variables, its Buy and Sell conditions.
inline constexpr std::array<DefaultLine, 10> kDefaultGraphSettings = {{
    {"Default"},
    {"Price"},
    {"LR MINMAX CL"},
    {"LR T.CL"},
    {"MA 180"},
    {"MLR 60"},
    {"MLR 60 L.CL"},
    {"MLR 90"},
    {"Condition 1", DefaultKind::Kept},
    {"Condition 2", DefaultKind::Kept},
}};

// Markers of the field sequences.
inline constexpr std::string_view kStartEod = "StartEOD";
inline constexpr std::string_view kEndEod = "EndEOD";
inline constexpr std::string_view kStartHistory = "StartH";
inline constexpr std::string_view kEndHistory = "EndH";
inline constexpr std::string_view kEndExportFile = "End Export File";
inline constexpr std::string_view kEndImportFile = "End Import File";

// VTRNETset.ini above its sequences.
inline constexpr std::array<DefaultLine, 10> kDefaultNetSettings = {{
    {"Yahoo", DefaultKind::Kept},
    {"", DefaultKind::Kept},
    {"Yahoo", DefaultKind::Kept},
    {"", DefaultKind::KeptRaw},
    {"", DefaultKind::KeptRaw},
    {"15", DefaultKind::Raw},
    {"0", DefaultKind::Raw},
    {"0", DefaultKind::Raw},
    {"01/02/04"},
    {"Comma"},
}};

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

// VTRIMEXset.ini above its sequences.
inline constexpr std::array<DefaultLine, 9> kDefaultImExSettings = {{
    {"Comma Delimited"},
    {"Data", DefaultKind::Kept},
    {"Export.Txt"},
    {"Comma Delimited"},
    {"Data", DefaultKind::Kept},
    {"Import.Txt"},
    {"0", DefaultKind::Number},
    {"0", DefaultKind::Number},
    {"01/02/04"},
}};

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
