#include "daily/row_update.h"

#include <algorithm>

#include "alerts/price_alarms.h"
#include "base/numbers.h"
#include "base/text.h"
#include "store/import_record.h"

namespace brantlow {

namespace {

// Forms that a missing value takes, once it is formatted, in the free service.
constexpr std::array<std::string_view, 3> kMissingValues = {"N/A", "9000.000", "0.010"};

bool IsMissing(std::string_view text) {
    return std::find(kMissingValues.begin(), kMissingValues.end(), text) != kMissingValues.end();
}

std::unordered_set<std::string> TickersOf(const QuoteTable& table) {
    std::unordered_set<std::string> tickers;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) tickers.insert(UpperCase(table.Ticker(row)));
    tickers.erase("");
    return tickers;
}

}  // namespace

RowUpdate::RowUpdate(const UpdateWork& work, UpdateOutcome& outcome)
    : work_(work),
      outcome_(outcome),
      today_(work.session.clock.Today()),
      standardSource_(QuoteSourceOf(work.session.settings) == QuoteSource::Standard),
      userForm_(UserQuoteFormOf(work.session.settings)),
      decimalCommas_(work.hosts.HasDecimalCommas(work.hosts.QuoteHostInForce(work.session.settings))),
      columns_(LocateColumns(work.table)),
      tickers_(TickersOf(work.table)) {
    for (std::size_t i = 0; i < acceptedDates_.size(); ++i) {
        acceptedDates_[i] = FormatDate(AddDays(today_, -static_cast<int>(i)));
    }
}

bool RowUpdate::ReadLine(std::string_view line, std::size_t row, QuoteArrays& rows) const {
    const bool taken =
        standardSource_ ? TakeStandardLine(line, row, rows) : TakeUserLine(line, userForm_, row, rows);
    if (taken) rows.TradeDates[row] = ReformatDate(rows.TradeDates[row]);
    return taken;
}

void RowUpdate::CountIfStale(std::string_view tradeDate, std::size_t batchRow) {
    constexpr int kStaleDays = 4;
    constexpr std::size_t kFirstTestedBatch = 16;
    constexpr double kStaleShare = 0.9;
    const auto date = ParseDate(tradeDate);
    if (date && AddDays(*date, kStaleDays) < today_) ++outcome_.StaleCount;
    const auto rowCount = static_cast<double>(work_.table.RowCount());
    // The quotient is reduced by one, not the count: only rows that come again and again can get there.
    const double share = static_cast<double>(outcome_.StaleCount) / rowCount - 1;
    if (batchRow >= kFirstTestedBatch && share > kStaleShare) work_.session.run.ProcessCommand = kStopRun;
}

bool RowUpdate::IsAccepted(const QuoteArrays& rows, std::size_t row) const {
    const std::string& date = rows.TradeDates[row];
    const bool isYoung =
        std::find(acceptedDates_.begin(), acceptedDates_.end(), date) != acceptedDates_.end();
    // A file is named after the record's ticker, so only tickers of the table may pass.
    return isYoung && LeadingNumber(rows.LastPrices[row]) > 0 &&
           tickers_.count(UpperCase(rows.Symbols[row])) > 0;
}

void RowUpdate::WriteCells(std::size_t row) {
    QuoteTable& table = work_.table;
    std::string text;
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        if (!CellText(work_.rows, row, table.Header(column), text)) continue;
        table.SetText(row, column, IsMissing(text) ? std::string_view{} : std::string_view(text));
    }
}

void RowUpdate::Scan(std::size_t row) {
    Session& session = work_.session;
    if (!ScanAlarms(work_.table, row, columns_, today_, session.person)) return;
    SendStockAlert(work_.web, work_.hosts, session.settings, work_.table.Ticker(row), work_.alerted,
                   &session.run);
}

void RowUpdate::TakeLine(std::string_view line, std::size_t row, std::size_t batchRow, std::string& records) {
    const std::string ticker = work_.table.Ticker(row);
    spare_ = QuoteArrays();
    spare_.MakeRoom(1);
    spare_.Symbols[1] = ticker;
    if (!ReadLine(line, 1, spare_)) return;
    const bool isRowsOwn = !ticker.empty() && UpperCase(spare_.Symbols[1]) == ticker;
    const bool fillsRow = decimalCommas_ || isRowsOwn;
    QuoteArrays& rows = fillsRow ? work_.rows : spare_;
    const std::size_t at = fillsRow ? row : 1;
    if (fillsRow) ReadLine(line, row, rows);

    CountIfStale(rows.TradeDates[at], batchRow);
    CalculateRow(rows, at, RatioGuard::AboveZero, today_);
    if (IsAccepted(rows, at)) {
        AppendImportRecord(rows, at, records);
        ++outcome_.accepted;
    }
    if (fillsRow) {
        WriteCells(row);
        rows.Symbols[row] = ticker;
    }
    Scan(row);
}

}  // namespace brantlow
