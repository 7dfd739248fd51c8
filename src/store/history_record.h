// A record of a year file: one trading day of one ticker as a line of the quote database.
//
// Reader and writers share the order and the form that stand here: 19 comma-separated fields, text in double
// quotes, numbers bare with a point, no header, oldest day first, lines ended by CR LF. Commas always
// separate, quotes do not protect them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace brantlow {

inline constexpr std::size_t kHistoryFieldCount = 19;

// How a field is written.
enum class HistoryForm : unsigned char {
    Text,           // in double quotes
    ThreeDecimals,  // rounded as "####0.000" rounds, written without closing zeros
    Whole,          // rounded to a whole number
    Full,           // the shortest text that reads back to the same number
};

// By position.
inline constexpr std::array<HistoryForm, kHistoryFieldCount> kHistoryForms = {
    HistoryForm::Text,          HistoryForm::Text,          HistoryForm::ThreeDecimals,
    HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals, HistoryForm::Whole,
    HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals,
    HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals, HistoryForm::Text,
    HistoryForm::Text,          HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals,
    HistoryForm::ThreeDecimals, HistoryForm::ThreeDecimals, HistoryForm::Full,
    HistoryForm::ThreeDecimals};

// The fields in the order of the line.
struct HistoryRecord {
    std::string HistoryDate;  // "mm/dd/yy"
    std::string HistoryTime;  // "hh:mm", empty in downloaded history
    double HistoryClose = 0;
    double HistoryLow = 0;
    double HistoryHigh = 0;
    double HistoryVolume = 0;
    double HistoryPE = 0;
    double HistoryEPS = 0;
    double HistoryPEG = 0;
    double HistoryEPSest = 0;
    double HistoryDividend = 0;
    std::string HistoryDividendDate;   // "mm/dd/yy" or empty
    std::string HistoryXDividendDate;  // "mm/dd/yy" or empty
    double HistoryPreviousClose = 0;
    double History52WeekLow = 0;
    double History52WeekHigh = 0;
    double HistoryPS = 0;
    double HistoryMarketCap = 0;  // millions
    double HistoryOpen = 0;

    bool operator==(const HistoryRecord&) const = default;
};

// Reads a line without its line end. Missing fields are empty and 0, further ones are ignored, a number that
// cannot be read is 0. Text loses its first and last character, whatever they are.
HistoryRecord ParseHistoryLine(std::string_view line);

// Rounds every number to the form of its field.
void RoundHistoryRecord(HistoryRecord& record);

// Adds the record's line with its line end to `out`. Numbers are written as they are: a record that was read
// keeps them, a new one is rounded before. Quotes and line ends cannot stand in text and are left out.
void AppendHistoryLine(const HistoryRecord& record, std::string& out);

// The two digits that name the year file of a trade date: its last two characters, fewer where it is shorter.
std::string_view YearDigits(std::string_view tradeDate);

}  // namespace brantlow
