#include "store/import_record.h"

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

void AppendField(const RecordField& field, const QuoteArrays& rows, std::size_t row, std::string& out) {
    constexpr int kDecimals = 3;
    if (field.form == RecordForm::MarketCap) return AppendShortestNumber(rows.MarketCaps[row], out);
    const std::string& text = (rows.*field.array)[row];
    if (field.form == RecordForm::Capitals) return AppendQuoted(UpperCase(text), out);
    if (field.form == RecordForm::Text) return AppendQuoted(text, out);
    const double number = LeadingNumber(text);
    AppendShortestNumber(field.form == RecordForm::Full ? number : RoundDecimals(number, kDecimals), out);
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
        AppendField(field, rows, row, out);
    }
    out += kLineEnd;
}

void TakeImportRecord(std::string_view line, std::size_t row, QuoteArrays& rows) {
    RecordReader reader(line);
    std::string_view written;
    std::string number;
    for (const RecordField& field : kRecordFields) {
        if (!reader.Next(written)) return;
        const bool isMarketCap = field.form == RecordForm::MarketCap;
        TakeValueText(written, isMarketCap ? number : (rows.*field.array)[row]);
        if (isMarketCap) rows.MarketCaps[row] = LeadingNumber(number);
    }
}

}  // namespace brantlow
