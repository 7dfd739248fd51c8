// The per-ticker quote arrays and the row calculation that turns received fields into the derived columns.
//
// An import and the end-of-day update fill the arrays at a row, calculate, write the row to the table, repair
// it and store its day. Entries stay from one run to the next: what a later run cannot compute keeps the
// value it had. Numbers are held as text, as received or as computed; text that is no number counts as 0 in a
// calculation and passes into the table unchanged.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "store/quote_table.h"

namespace brantlow {

using QuoteArray = std::vector<std::string>;

// One entry a table row, by row number; entry 0 belongs to the header and is not used.
struct QuoteArrays {
    QuoteArray Symbols;
    QuoteArray LastPrices;
    QuoteArray ChangeValues;
    QuoteArray ChangePercent;
    QuoteArray AskPrices;
    QuoteArray BidPrices;
    QuoteArray LowPrices;
    QuoteArray HighPrices;
    QuoteArray Volumes;
    QuoteArray OpenPrices;
    QuoteArray PreviousCloses;
    QuoteArray Low52;
    QuoteArray High52;
    QuoteArray Names;
    QuoteArray Exchanges;
    QuoteArray TradeDates;
    QuoteArray TradeTimes;
    QuoteArray PeTtm;
    QuoteArray PeEst;
    QuoteArray EpsTtm;
    QuoteArray EpsEst;
    QuoteArray SalesPerShare;
    QuoteArray EarningsPerSales;
    QuoteArray PegValues;
    QuoteArray PsValues;
    QuoteArray Dividends;
    QuoteArray YieldPercent;
    QuoteArray DividendDates;
    QuoteArray XDividendDates;
    QuoteArray MarketCapText;        // as received: "1.2B"
    std::vector<double> MarketCaps;  // millions
    QuoteArray AnnualSales;          // millions
    QuoteArray AnnualEarnings;       // millions
    QuoteArray AnnualEarningsEst;    // millions

    // Makes room for the rows 1 to `lastRow`, at most kMostRows; what is there stays. A row is touched only
    // after room was made for it.
    void MakeRoom(std::size_t lastRow);
    // Empties the entries of row `row`, for which room was made.
    void ClearRow(std::size_t row);
    bool HasRow(std::size_t row) const { return row >= 1 && row < Symbols.size(); }
};

// Takes the tickers of the table, one a row, and makes room for them.
void CopySymbols(const QuoteTable& table, QuoteArrays& rows);

// Whose guards hold for a ratio: an import divides by whatever is not 0, the update only by what is above 0.
enum class RatioGuard { NotZero, AboveZero };

// A trade date as its file has it, as "mm/dd/yy". `form` is the date form of the import settings:
// "01/02/04", "Jan-2-2004", "20040102" or "040102"; any other form reads like the first. The two forms of
// digits alone take the day for the month as well, and what is then no date passes on as month/day/year. An
// empty field is an empty date in any form.
std::string ConvertTradeDate(std::string_view field, std::string_view form);

// The steps of the calculation in their order. Each works on row `row`, for which room was made; `today`
// decides which year a date belongs to.
void ClearDatesWithoutDividend(QuoteArrays& rows, std::size_t row);
void MoveDividendDate(QuoteArrays& rows, std::size_t row, const Date& today);
void CalculateYield(QuoteArrays& rows, std::size_t row);
void FormatTradeTime(QuoteArrays& rows, std::size_t row);
void CalculateMarketCap(QuoteArrays& rows, std::size_t row);
void CalculateAnnualSales(QuoteArrays& rows, std::size_t row);
void CalculateAnnualEarnings(QuoteArrays& rows, std::size_t row, RatioGuard guard);
void CalculateAnnualEarningsEst(QuoteArrays& rows, std::size_t row);
void CalculateChangePercent(QuoteArrays& rows, std::size_t row);
void CalculateEarningsPerSales(QuoteArrays& rows, std::size_t row, RatioGuard guard);
void CalculateSalesPerShare(QuoteArrays& rows, std::size_t row, RatioGuard guard);
void CalculatePeEst(QuoteArrays& rows, std::size_t row, RatioGuard guard);

// All of these steps, one after another; the trade date has its final form before.
void CalculateRow(QuoteArrays& rows, std::size_t row, RatioGuard guard, const Date& today);

// Where the cells of a column come from: an array, or the market caps where it is null, and their form.
struct CellSource {
    QuoteArray QuoteArrays::*array = nullptr;
    std::string_view picture;
};

// Nothing for a column that the arrays do not hold (an alarm, or no column of a quote table).
std::optional<CellSource> CellSourceOf(std::string_view header);
// The text that a column shows for a row, in the column's form.
std::string CellText(const QuoteArrays& rows, std::size_t row, const CellSource& source);
// The same by the column's header; false, with `text` untouched, where it has no source.
bool CellText(const QuoteArrays& rows, std::size_t row, std::string_view header, std::string& text);

// Writes the row into the table, each column in its form; the table grows to hold it. Columns that the table
// does not have are left out, and columns that the arrays do not hold keep their cells.
void WriteRow(const QuoteArrays& rows, std::size_t row, QuoteTable& table);

// Fills in a missing high, low and last price for the database, after the table's cells were written.
void RepairRow(QuoteArrays& rows, std::size_t row);
// The same for the open price, right before a day is stored.
void RepairOpenPrice(QuoteArrays& rows, std::size_t row);

}  // namespace brantlow
