#include "store/import_record.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

// How a value of the record is written.
enum class RecordForm : unsigned char {
    Capitals,       // quoted, in capitals
    Text,           // quoted
    ThreeDecimals,  // rounded to three decimals
    Full,           // as it stands
    MarketCap,      // the number of millions
};

struct RecordField {
    QuoteArray QuoteArrays::*array;  // null for the market cap, which is a number
    RecordForm form;
};

// In the order of the line. The open price comes twice: readers take the last one.
constexpr std::array<RecordField, kImportFieldCount> kRecordFields = {{
    {&QuoteArrays::Symbols, RecordForm::Capitals},
    {&QuoteArrays::LastPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::ChangeValues, RecordForm::ThreeDecimals},
    {&QuoteArrays::AskPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::BidPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::LowPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::HighPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::Volumes, RecordForm::Full},
    {&QuoteArrays::PeTtm, RecordForm::ThreeDecimals},
    {&QuoteArrays::EpsTtm, RecordForm::ThreeDecimals},
    {&QuoteArrays::Dividends, RecordForm::ThreeDecimals},
    {&QuoteArrays::DividendDates, RecordForm::Text},
    {&QuoteArrays::XDividendDates, RecordForm::Text},
    {&QuoteArrays::OpenPrices, RecordForm::ThreeDecimals},
    {&QuoteArrays::Low52, RecordForm::ThreeDecimals},
    {&QuoteArrays::High52, RecordForm::ThreeDecimals},
    {&QuoteArrays::Names, RecordForm::Text},
    {&QuoteArrays::Exchanges, RecordForm::Text},
    {&QuoteArrays::TradeDates, RecordForm::Text},
    {&QuoteArrays::TradeTimes, RecordForm::Text},
    {&QuoteArrays::EpsEst, RecordForm::ThreeDecimals},
    {&QuoteArrays::PegValues, RecordForm::ThreeDecimals},
    {&QuoteArrays::PsValues, RecordForm::ThreeDecimals},
    {&QuoteArrays::PreviousCloses, RecordForm::ThreeDecimals},
    {nullptr, RecordForm::MarketCap},
    {&QuoteArrays::OpenPrices, RecordForm::ThreeDecimals},
}};

Value RecordValue(const RecordField& field, const QuoteArrays& rows, std::size_t row) {
    constexpr int kDecimals = 3;
    if (field.form == RecordForm::MarketCap) return Value::OfNumber(rows.MarketCaps[row]);
    const std::string& text = (rows.*field.array)[row];
    switch (field.form) {
        case RecordForm::Capitals:
            return Value::OfText(UpperCase(text));
        case RecordForm::Text:
            return Value::OfText(text);
        case RecordForm::ThreeDecimals:
            return Value::OfNumber(RoundDecimals(LeadingNumber(text), kDecimals));
        case RecordForm::Full:
        case RecordForm::MarketCap:
            break;
    }
    return Value::OfNumber(LeadingNumber(text));
}

}  // namespace

Path ImportRecordFile(const Path& appPath) {
    return appPath / "Import.Txt";
}

void AppendImportRecord(const QuoteArrays& rows, std::size_t row, std::string& out) {
    bool first = true;
    for (const RecordField& field : kRecordFields) {
        if (!first) out += ',';
        first = false;
        out += RecordValue(field, rows, row).Written();
    }
    out += kLineEnd;
}

void TakeImportRecord(std::string_view line, std::size_t row, QuoteArrays& rows) {
    const std::vector<Value> values = ParseRecord(line);
    const std::size_t count = std::min(values.size(), kRecordFields.size());
    for (std::size_t i = 0; i < count; ++i) {
        const RecordField& field = kRecordFields[i];
        if (field.form == RecordForm::MarketCap) {
            rows.MarketCaps[row] = LeadingNumber(values[i].Text());
        } else {
            (rows.*field.array)[row] = values[i].Text();
        }
    }
}

}  // namespace brantlow
