#include "daily/row_update.h"

#include <algorithm>

#include "alerts/price_alarms.h"
#include "base/numbers.h"
#include "base/text.h"
#include "store/import_record.h"
#include "store/row_reading.h"

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

std::vector<const QuoteField*> StandardFields() {
    std::vector<const QuoteField*> fields;
    for (const QuoteField& field : kQuoteFields) fields.push_back(&field);
    return fields;
}

}  // namespace

RowUpdate::RowUpdate(const UpdateWork& work, UpdateOutcome& outcome)
    : work_(work),
      outcome_(outcome),
      today_(work.session.clock.Today()),
      standardSource_(QuoteSourceOf(work.session.settings) == QuoteSource::Standard),
      userForm_(UserQuoteFormOf(work.session.settings)),
      fields_(standardSource_ ? StandardFields() : userForm_.fields),
      decimalCommas_(work.hosts.HasDecimalCommas(work.hosts.QuoteHostInForce(work.session.settings))),
      tickers_(TickersOf(work.table)) {
    for (std::size_t i = 0; i < acceptedDates_.size(); ++i) {
        acceptedDates_[i] = FormatDate(AddDays(today_, -static_cast<int>(i)));
    }
    spare_.MakeRoom(1);
}

void RowUpdate::BeginBatch(std::size_t batchRow) {
    batchRow_ = batchRow;
    columns_ = LocateColumns(work_.table);
    filledColumns_.clear();
    for (std::size_t column = 1; column < work_.table.ColumnCount(); ++column) {
        if (const auto source = CellSourceOf(work_.table.Header(column)))
            filledColumns_.push_back({column, *source});
    }
}

bool RowUpdate::ReadLine(std::string_view line, std::string_view ticker) {
    spare_.ClearRow(1);
    spare_.Symbols[1] = ticker;
    const bool taken =
        standardSource_ ? TakeStandardLine(line, 1, spare_) : TakeUserLine(line, userForm_, 1, spare_);
    if (taken) spare_.TradeDates[1] = ReformatDate(spare_.TradeDates[1]);
    return taken;
}

void RowUpdate::FillRow(std::size_t row) {
    for (const QuoteField* field : fields_) {
        if (field != nullptr) (work_.rows.*field->array)[row] = (spare_.*field->array)[1];
    }
}

void RowUpdate::CountIfStale(std::string_view tradeDate) {
    constexpr int kStaleDays = 4;
    constexpr std::size_t kFirstTestedBatch = 16;
    constexpr double kStaleShare = 0.9;
    const auto date = ParseDate(tradeDate);
    if (date && AddDays(*date, kStaleDays) < today_) ++outcome_.StaleCount;
    const auto rowCount = static_cast<double>(work_.table.RowCount());
    // The quotient is reduced by one, not the count: only rows that come again and again can get there.
    const double share = static_cast<double>(outcome_.StaleCount) / rowCount - 1;
    if (batchRow_ >= kFirstTestedBatch && share > kStaleShare) work_.session.run.ProcessCommand = kStopRun;
}

bool RowUpdate::IsYoung(std::string_view tradeDate) const {
    return std::find(acceptedDates_.begin(), acceptedDates_.end(), tradeDate) != acceptedDates_.end();
}

bool RowUpdate::HasStorableQuote(const QuoteArrays& rows, std::size_t row) const {
    return IsYoung(rows.TradeDates[row]) && LeadingNumber(rows.LastPrices[row]) > 0;
}

void RowUpdate::WriteCells(std::size_t row) {
    for (const FilledColumn& filled : filledColumns_) {
        const std::string text = CellText(work_.rows, row, filled.source);
        work_.table.SetText(row, filled.column,
                            IsMissing(text) ? std::string_view{} : std::string_view(text));
    }
}

void RowUpdate::TakePrices(const LiveQuote& quote, std::size_t row) {
    constexpr int kDecimals = 4;
    const auto text = [](double price) { return ShortestNumber(RoundDecimals(price, kDecimals)); };
    QuoteArrays& rows = work_.rows;
    rows.TradeDates[row] = FormatDate(quote.day);
    rows.TradeTimes[row] = FormatTime(quote.minutes);
    rows.LastPrices[row] = text(quote.close);
    rows.OpenPrices[row] = text(quote.open);
    rows.HighPrices[row] = text(quote.high);
    rows.LowPrices[row] = text(quote.low);
    rows.Volumes[row] = ShortestNumber(RoundDecimals(quote.volume, 0));
    // A change against a close of another time would be none.
    rows.PreviousCloses[row] = quote.previousClose ? text(*quote.previousClose) : std::string();
    if (quote.previousClose) rows.ChangeValues[row] = text(quote.close - *quote.previousClose);
}

void RowUpdate::TakeQuote(const LiveQuote& quote, std::size_t row, bool isShown, std::string* records) {
    QuoteArrays& rows = work_.rows;
    // What the source does not send goes into the day's record as the table shows it.
    ReadRow(work_.table, row, rows);
    std::vector<std::string> before;
    for (const FilledColumn& filled : filledColumns_) before.push_back(CellText(rows, row, filled.source));
    TakePrices(quote, row);
    CalculateRow(rows, row, RatioGuard::AboveZero, today_);
    if (records != nullptr && HasStorableQuote(rows, row)) {
        AppendImportRecord(rows, row, *records);
        ++outcome_.accepted;
    }
    if (!isShown) return;
    for (std::size_t i = 0; i < filledColumns_.size(); ++i) {
        const FilledColumn& filled = filledColumns_[i];
        const std::string text = CellText(rows, row, filled.source);
        const bool isUnknown = text.empty() && filled.source.array == &QuoteArrays::PreviousCloses;
        if (text != before[i] && !isUnknown) work_.table.SetText(row, filled.column, text);
    }
    Scan(row);
}

void RowUpdate::TakeShown(std::size_t row) {
    ReadRow(work_.table, row, work_.rows);
    Scan(row);
}

void RowUpdate::Scan(std::size_t row) {
    Session& session = work_.session;
    if (!ScanAlarms(work_.table, row, columns_, today_, session.person)) return;
    NoteAlarm(row);
    const std::string& ticker = work_.table.Ticker(row);
    const AlertOutcome alert =
        SendStockAlert(work_.web, work_.hosts, session.settings, ticker, work_.alerted, &session.run);
    if (alert == AlertOutcome::LeftOut) outcome_.alertsLeftOut.push_back(ticker);
}

// Keeps the alarm for the list, the mail and the screen, once a ticker in a run of the program.
void RowUpdate::NoteAlarm(std::size_t row) {
    std::optional<FiredAlarm> alarm = FiredAlarmOf(work_.table, row, columns_);
    if (!alarm || !work_.alerted.told.insert(alarm->ticker).second) return;
    const auto date = ParseDate(work_.rows.TradeDates[row]);
    const std::string& time = work_.rows.TradeTimes[row];
    constexpr int kSecondsPerMinute = 60;
    const Clock& clock = work_.session.clock;
    const int minutes = static_cast<int>(clock.SecondsSinceMidnight()) / kSecondsPerMinute;
    alarm->when = date && !time.empty() ? FormatIsoDate(*date) + " " + time
                                        : FormatIsoDate(clock.Today()) + " " + FormatTime(minutes);
    alarm->table = work_.session.CurrentFile;
    outcome_.alarms.push_back(std::move(*alarm));
}

LineTaken RowUpdate::TakeLine(std::string_view line, std::size_t row, std::string& records) {
    const std::string ticker = work_.table.Ticker(row);
    if (!ReadLine(line, ticker)) return LineTaken::Unreadable;
    const bool isRowsOwn = !ticker.empty() && UpperCase(spare_.Symbols[1]) == ticker;
    const bool fillsRow = decimalCommas_ || isRowsOwn;
    QuoteArrays& rows = fillsRow ? work_.rows : spare_;
    const std::size_t at = fillsRow ? row : 1;
    if (fillsRow) FillRow(row);

    CountIfStale(rows.TradeDates[at]);
    CalculateRow(rows, at, RatioGuard::AboveZero, today_);
    // A file is named after the record's ticker, so only tickers of the table may pass.
    const bool isListed = isRowsOwn || tickers_.count(UpperCase(rows.Symbols[at])) > 0;
    const bool isAccepted = isListed && HasStorableQuote(rows, at);
    if (isAccepted) {
        AppendImportRecord(rows, at, records);
        ++outcome_.accepted;
    }
    const bool hasQuote = LeadingNumber(rows.LastPrices[at]) > 0 || ParseDate(rows.TradeDates[at]);
    if (fillsRow) {
        WriteCells(row);
        rows.Symbols[row] = ticker;
    }
    Scan(row);
    if (!fillsRow) return LineTaken::OtherTicker;
    if (isAccepted) return LineTaken::Accepted;
    return hasQuote ? LineTaken::Old : LineTaken::Unknown;
}

}  // namespace brantlow
