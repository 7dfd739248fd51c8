// The fields that a quote source or an import file can supply, by the names under which the settings list
// them. The derived columns are computed and have no field.
#pragma once

#include <array>
#include <string_view>

#include "store/quote_rows.h"

namespace brantlow {

// What a field's text is.
enum class FieldForm : unsigned char {
    Text,    // sources put it in quotes
    Number,  // a number
    Amount,  // a number with its unit behind it: "1.2B"
};

struct QuoteField {
    std::string_view name;
    QuoteArray QuoteArrays::*array;
    FieldForm form;
};

// In the order in which the standard source sends them.
inline constexpr std::array<QuoteField, 25> kQuoteFields = {{
    {"Ticker Symbol", &QuoteArrays::Symbols, FieldForm::Text},
    {"Last Price", &QuoteArrays::LastPrices, FieldForm::Number},
    {"Trade Date", &QuoteArrays::TradeDates, FieldForm::Text},
    {"Trade Time", &QuoteArrays::TradeTimes, FieldForm::Text},
    {"Dividend Date", &QuoteArrays::DividendDates, FieldForm::Text},
    {"Change", &QuoteArrays::ChangeValues, FieldForm::Number},
    {"Name", &QuoteArrays::Names, FieldForm::Text},
    {"Exchange", &QuoteArrays::Exchanges, FieldForm::Text},
    {"X Dividend Date", &QuoteArrays::XDividendDates, FieldForm::Text},
    {"Ask Price", &QuoteArrays::AskPrices, FieldForm::Number},
    {"Bid Price", &QuoteArrays::BidPrices, FieldForm::Number},
    {"Open Price", &QuoteArrays::OpenPrices, FieldForm::Number},
    {"High Price", &QuoteArrays::HighPrices, FieldForm::Number},
    {"Dividend", &QuoteArrays::Dividends, FieldForm::Number},
    {"52 Week Low", &QuoteArrays::Low52, FieldForm::Number},
    {"52 Week High", &QuoteArrays::High52, FieldForm::Number},
    {"EPS ttm.", &QuoteArrays::EpsTtm, FieldForm::Number},
    {"Low Price", &QuoteArrays::LowPrices, FieldForm::Number},
    {"P/E ttm.", &QuoteArrays::PeTtm, FieldForm::Number},
    {"Volume", &QuoteArrays::Volumes, FieldForm::Number},
    {"PEG", &QuoteArrays::PegValues, FieldForm::Number},
    {"EPS est.", &QuoteArrays::EpsEst, FieldForm::Number},
    {"Previous Close", &QuoteArrays::PreviousCloses, FieldForm::Number},
    {"Market Cap (M)", &QuoteArrays::MarketCapText, FieldForm::Amount},
    {"P/S", &QuoteArrays::PsValues, FieldForm::Number},
}};

// The field of this name, or null: a source's field without one is skipped.
constexpr const QuoteField* FindQuoteField(std::string_view name) {
    for (const QuoteField& field : kQuoteFields) {
        if (field.name == name) return &field;
    }
    return nullptr;
}

}  // namespace brantlow
