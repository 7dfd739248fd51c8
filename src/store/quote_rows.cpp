#include "store/quote_rows.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"
#include "store/columns.h"
#include "store/history_record.h"

namespace brantlow {

namespace {

using Member = QuoteArray QuoteArrays::*;

struct ArrayColumn {
    std::string_view header;
    Member array;
};

// The column of each array; the market cap, a number, has no entry.
constexpr std::array<ArrayColumn, 32> kArrayColumns = {
    {{"Ticker Symbol", &QuoteArrays::Symbols},
     {"Last Price", &QuoteArrays::LastPrices},
     {"Change", &QuoteArrays::ChangeValues},
     {"Change (%)", &QuoteArrays::ChangePercent},
     {"Ask Price", &QuoteArrays::AskPrices},
     {"Bid Price", &QuoteArrays::BidPrices},
     {"Low Price", &QuoteArrays::LowPrices},
     {"High Price", &QuoteArrays::HighPrices},
     {"Volume", &QuoteArrays::Volumes},
     {"Open Price", &QuoteArrays::OpenPrices},
     {"Previous Close", &QuoteArrays::PreviousCloses},
     {"52 Week Low", &QuoteArrays::Low52},
     {"52 Week High", &QuoteArrays::High52},
     {"Name", &QuoteArrays::Names},
     {"Exchange", &QuoteArrays::Exchanges},
     {"Trade Date", &QuoteArrays::TradeDates},
     {"Trade Time", &QuoteArrays::TradeTimes},
     {"P/E ttm.", &QuoteArrays::PeTtm},
     {"P/E est.", &QuoteArrays::PeEst},
     {"EPS ttm.", &QuoteArrays::EpsTtm},
     {"EPS est.", &QuoteArrays::EpsEst},
     {"SPS", &QuoteArrays::SalesPerShare},
     {"E/S", &QuoteArrays::EarningsPerSales},
     {"PEG", &QuoteArrays::PegValues},
     {"P/S", &QuoteArrays::PsValues},
     {"Dividend", &QuoteArrays::Dividends},
     {"Yield (%)", &QuoteArrays::YieldPercent},
     {"Dividend Date", &QuoteArrays::DividendDates},
     {"X Dividend Date", &QuoteArrays::XDividendDates},
     {"Annual Sales (M)", &QuoteArrays::AnnualSales},
     {"Annual Earnings (M)", &QuoteArrays::AnnualEarnings},
     {"Annual Earnings est. (M)", &QuoteArrays::AnnualEarningsEst}}};

constexpr std::string_view kMarketCapHeader = "Market Cap (M)";
constexpr std::string_view kNotAvailable = "N/A";
constexpr double kPercent = 100;

bool Passes(RatioGuard guard, double divisor) {
    return guard == RatioGuard::NotZero ? divisor != 0 : divisor > 0;
}

// A value that could not be computed leaves what was there.
void Keep(std::string& entry, std::optional<double> value) {
    if (value) entry = ShortestNumber(*value);
}

bool PaysDividend(const QuoteArrays& rows, std::size_t row) {
    return LeadingNumber(rows.Dividends[row]) > 0;
}

std::string MiddleOf(const std::string& high, const std::string& low) {
    return ShortestNumber((LeadingNumber(high) + LeadingNumber(low)) / 2);
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
}

// "20040102" and "040102", `yearDigits` of which are the year.
std::string ConvertDigitDate(std::string_view field, std::size_t yearDigits) {
    const std::string_view month = LastCharacters(LastCharacters(field, 4), 2);
    const std::string_view day = LastCharacters(field, 2);
    std::string date;
    date.append(month).append(1, '/').append(day).append(1, '/').append(field.substr(0, yearDigits));
    return ReformatDate(date);
}

}  // namespace

void QuoteArrays::MakeRoom(std::size_t lastRow) {
    const std::size_t size = std::min(lastRow, kMostRows) + 1;
    if (Symbols.size() >= size) return;
    for (const ArrayColumn& column : kArrayColumns) (this->*column.array).resize(size);
    MarketCapText.resize(size);
    MarketCaps.resize(size);
}

void QuoteArrays::ClearRow(std::size_t row) {
    for (const ArrayColumn& column : kArrayColumns) (this->*column.array)[row].clear();
    MarketCapText[row].clear();
    MarketCaps[row] = 0;
}

void CopySymbols(const QuoteTable& table, QuoteArrays& rows) {
    rows.MakeRoom(table.TickerCount());
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) rows.Symbols[row] = table.Ticker(row);
}

std::string ConvertTradeDate(std::string_view field, std::string_view form) {
    if (Trim(field).empty()) return {};
    constexpr std::size_t kLongYear = 4;
    constexpr std::size_t kShortYear = 2;
    if (form == "20040102") return ConvertDigitDate(field, kLongYear);
    if (form == "040102") return ConvertDigitDate(field, kShortYear);
    return ReformatDate(field);
}

void ClearDatesWithoutDividend(QuoteArrays& rows, std::size_t row) {
    const bool pays = PaysDividend(rows, row);
    for (const Member dates : {&QuoteArrays::XDividendDates, &QuoteArrays::DividendDates}) {
        std::string& date = (rows.*dates)[row];
        date = !pays || date == kNotAvailable ? std::string() : ReformatDate(date);
    }
}

void MoveDividendDate(QuoteArrays& rows, std::size_t row, const Date& today) {
    const std::string& xDate = rows.XDividendDates[row];
    std::string& payDate = rows.DividendDates[row];
    if (payDate.empty()) return;  // only a date can be moved
    const std::string now = FormatDate(today);
    if (YearDigits(xDate) != YearDigits(now) || xDate <= payDate) return;
    constexpr std::size_t kMonthAndDay = 6;
    const int nextYear = static_cast<int>(today.year()) + 1;
    payDate = ReformatDate(payDate.substr(0, kMonthAndDay) + std::to_string(nextYear));
}

void CalculateYield(QuoteArrays& rows, std::size_t row) {
    if (!PaysDividend(rows, row)) {
        rows.Dividends[row].clear();
        rows.YieldPercent[row].clear();
        return;
    }
    const double dividend = LeadingNumber(rows.Dividends[row]);
    Keep(rows.YieldPercent[row], Divide(dividend * kPercent, LeadingNumber(rows.PreviousCloses[row])));
}

void FormatTradeTime(QuoteArrays& rows, std::size_t row) {
    rows.TradeTimes[row] = ReformatTime(rows.TradeTimes[row]);
}

void CalculateMarketCap(QuoteArrays& rows, std::size_t row) {
    constexpr double kThousand = 1000;
    const std::string& text = rows.MarketCapText[row];
    const char unit = text.empty() ? '\0' : text.back();
    const double number = LeadingNumber(text);
    double& millions = rows.MarketCaps[row];
    millions = 0;
    if (unit == 'B') millions = number * kThousand;
    if (unit == 'M') millions = number;
    if (unit == 'K') millions = number / kThousand;
}

void CalculateAnnualSales(QuoteArrays& rows, std::size_t row) {
    const double close = LeadingNumber(rows.PreviousCloses[row]);
    const double priceToSales = LeadingNumber(rows.PsValues[row]);
    if (priceToSales == 0 || !(close > 0)) return;
    const auto shares = Divide(rows.MarketCaps[row], close);
    const auto salesPerShare = Divide(close, priceToSales);
    if (shares && salesPerShare) Keep(rows.AnnualSales[row], *shares * *salesPerShare);
}

void CalculateAnnualEarnings(QuoteArrays& rows, std::size_t row, RatioGuard guard) {
    const double priceToEarnings = LeadingNumber(rows.PeTtm[row]);
    if (!Passes(guard, priceToEarnings)) return;
    Keep(rows.AnnualEarnings[row], Divide(rows.MarketCaps[row], priceToEarnings));
}

void CalculateAnnualEarningsEst(QuoteArrays& rows, std::size_t row) {
    const double close = LeadingNumber(rows.PreviousCloses[row]);
    const double earnings = LeadingNumber(rows.EpsEst[row]);
    if (!(close > 0) || !(earnings > 0) || !(rows.MarketCaps[row] > 0)) return;
    if (const auto shares = Divide(rows.MarketCaps[row], close)) {
        Keep(rows.AnnualEarningsEst[row], *shares * earnings);
    }
}

void CalculateChangePercent(QuoteArrays& rows, std::size_t row) {
    const double close = LeadingNumber(rows.PreviousCloses[row]);
    if (!(close > 0)) return;
    const double change = LeadingNumber(rows.LastPrices[row]) - close;
    Keep(rows.ChangePercent[row], Divide(kPercent * change, close));
}

void CalculateEarningsPerSales(QuoteArrays& rows, std::size_t row, RatioGuard guard) {
    const double priceToEarnings = LeadingNumber(rows.PeTtm[row]);
    if (!Passes(guard, priceToEarnings)) return;
    Keep(rows.EarningsPerSales[row], Divide(LeadingNumber(rows.PsValues[row]), priceToEarnings));
}

void CalculateSalesPerShare(QuoteArrays& rows, std::size_t row, RatioGuard guard) {
    const double priceToSales = LeadingNumber(rows.PsValues[row]);
    if (!Passes(guard, priceToSales)) return;
    Keep(rows.SalesPerShare[row], Divide(LeadingNumber(rows.PreviousCloses[row]), priceToSales));
}

void CalculatePeEst(QuoteArrays& rows, std::size_t row, RatioGuard guard) {
    const double estimate = LeadingNumber(rows.EpsEst[row]);
    if (!Passes(guard, estimate)) return;
    const double price = LeadingNumber(rows.EpsTtm[row]) * LeadingNumber(rows.PeTtm[row]);
    Keep(rows.PeEst[row], Divide(price, estimate));
}

void CalculateRow(QuoteArrays& rows, std::size_t row, RatioGuard guard, const Date& today) {
    ClearDatesWithoutDividend(rows, row);
    MoveDividendDate(rows, row, today);
    CalculateYield(rows, row);
    FormatTradeTime(rows, row);
    CalculateMarketCap(rows, row);
    CalculateAnnualSales(rows, row);
    CalculateAnnualEarnings(rows, row, guard);
    CalculateAnnualEarningsEst(rows, row);
    CalculateChangePercent(rows, row);
    CalculateEarningsPerSales(rows, row, guard);
    CalculateSalesPerShare(rows, row, guard);
    CalculatePeEst(rows, row, guard);
}

std::optional<CellSource> CellSourceOf(std::string_view header) {
    const QuoteColumn* column = FindQuoteColumn(header);
    if (column == nullptr) return std::nullopt;
    if (header == kMarketCapHeader) return CellSource{nullptr, column->picture};
    const auto entry = std::find_if(kArrayColumns.begin(), kArrayColumns.end(),
                                    [&](const ArrayColumn& c) { return c.header == header; });
    if (entry == kArrayColumns.end()) return std::nullopt;
    return CellSource{entry->array, column->picture};
}

std::string CellText(const QuoteArrays& rows, std::size_t row, const CellSource& source) {
    if (source.array == nullptr) return FormatPicture(source.picture, rows.MarketCaps[row]);
    const std::string& value = (rows.*source.array)[row];
    return source.picture.empty() ? value : FormatPictureText(source.picture, value);
}

bool CellText(const QuoteArrays& rows, std::size_t row, std::string_view header, std::string& text) {
    const auto source = CellSourceOf(header);
    if (source) text = CellText(rows, row, *source);
    return source.has_value();
}

void WriteRow(const QuoteArrays& rows, std::size_t row, QuoteTable& table) {
    if (row >= table.RowCount()) table.SetRowCount(row + 1);
    std::string text;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        if (CellText(rows, row, table.Header(column), text)) table.SetText(row, column, text);
    }
}

void RepairRow(QuoteArrays& rows, std::size_t row) {
    std::string& last = rows.LastPrices[row];
    std::string& high = rows.HighPrices[row];
    std::string& low = rows.LowPrices[row];
    if (LeadingNumber(last) > 0) {
        if (LeadingNumber(high) == 0) high = last;
        if (LeadingNumber(low) == 0) low = last;
    }
    const bool hasRange = LeadingNumber(high) > 0 && LeadingNumber(low) > 0;
    if (LeadingNumber(last) == 0 && hasRange) last = MiddleOf(high, low);
}

void RepairOpenPrice(QuoteArrays& rows, std::size_t row) {
    const std::string& high = rows.HighPrices[row];
    const std::string& low = rows.LowPrices[row];
    const bool hasRange = LeadingNumber(high) > 0 && LeadingNumber(low) > 0;
    std::string& open = rows.OpenPrices[row];
    if (LeadingNumber(open) == 0 && hasRange) open = MiddleOf(high, low);
}

}  // namespace brantlow
