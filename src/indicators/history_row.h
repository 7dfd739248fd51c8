// One record of a year file as the loaders read it: nineteen comma-separated fields, split at every comma
// (quotes are not respected), the text fields without their first and last character.
//
// The tables say which series takes which field; whoever walks all series of a bar uses them.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "indicators/working_series.h"
#include "store/history_record.h"

namespace brantlow {

struct NumberField {
    std::string_view name;
    std::size_t field;
    NumberSeries WorkingSeries::*series;
};

struct TextField {
    std::string_view name;
    std::size_t field;
    TextSeries WorkingSeries::*series;
};

inline constexpr std::array<NumberField, 15> kNumberFields = {{
    {"ClosePrice", 2, &WorkingSeries::ClosePrice},
    {"LowPrice", 3, &WorkingSeries::LowPrice},
    {"HighPrice", 4, &WorkingSeries::HighPrice},
    {"Volume", 5, &WorkingSeries::Volume},
    {"PERatio", 6, &WorkingSeries::PERatio},
    {"EPSttm", 7, &WorkingSeries::EPSttm},
    {"PEGRatio", 8, &WorkingSeries::PEGRatio},
    {"EPSest", 9, &WorkingSeries::EPSest},
    {"DividendPerShare", 10, &WorkingSeries::DividendPerShare},
    {"PreviousClose", 13, &WorkingSeries::PreviousClose},
    {"Low52Week", 14, &WorkingSeries::Low52Week},
    {"High52Week", 15, &WorkingSeries::High52Week},
    {"PriceToSales", 16, &WorkingSeries::PriceToSales},
    {"MarketCap", 17, &WorkingSeries::MarketCap},
    {"OpenPrice", 18, &WorkingSeries::OpenPrice},
}};

inline constexpr std::array<TextField, 4> kTextFields = {{
    {"QuoteDate", 0, &WorkingSeries::QuoteDate},
    {"QuoteTime", 1, &WorkingSeries::QuoteTime},
    {"DividendPayDate", 11, &WorkingSeries::DividendPayDate},
    {"ExDividendDate", 12, &WorkingSeries::ExDividendDate},
}};

// Places of the series in kNumberFields, for code that holds a bar's numbers in that order.
enum NumberSlot : std::size_t {
    kCloseSlot,
    kLowSlot,
    kHighSlot,
    kVolumeSlot,
    kPERatioSlot,
    kEPSttmSlot,
    kPEGRatioSlot,
    kEPSestSlot,
    kDividendSlot,
    kPreviousCloseSlot,
    kLow52WeekSlot,
    kHigh52WeekSlot,
    kPriceToSalesSlot,
    kMarketCapSlot,
    kOpenSlot,
};

// The first `fields` fields of a record; those behind them hold nothing of use.
struct HistoryRow {
    std::size_t fields = 0;  // 1 to kHistoryFieldCount
    std::array<double, kNumberFields.size()> numbers{};
    std::array<std::string_view, kTextFields.size()> texts{};  // live as long as the line
};

// Reads a line without its line end. Fields behind the nineteenth are passed over; a text field too short to
// lose two characters is empty.
void ParseHistoryRow(std::string_view line, HistoryRow& row);

// Reads the number fields that stand in kNumberFields at `slots`, rising, and leaves the other numbers as
// they are. The line has all of these fields.
void ReadNumberFields(std::string_view line, std::span<const NumberSlot> slots,
                      std::array<double, kNumberFields.size()>& numbers);

// LeadingNumber of the text up to the next comma or to `end`, by a shorter road for plain decimals. `text` is
// left at that comma or at `end`.
double ReadNumberField(const char*& text, const char* end);

// Stores the fields that the row has as bar `i`; the others keep what they held.
void StoreHistoryRow(const HistoryRow& row, std::size_t i, WorkingSeries& series);

}  // namespace brantlow
