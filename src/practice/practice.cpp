#include "practice/practice.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "practice/practice_prices.h"
#include "store/columns.h"
#include "store/history_record.h"
#include "store/quote_rows.h"
#include "store/quote_table.h"
#include "store/table_files.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// One year file to be.
struct YearFile {
    Path path;
    std::string bytes;
};

struct TickerHistory {
    std::vector<YearFile> files;
    std::size_t days = 0;
    // What the table shows: the last day that is written, and what a source would tell of the year behind it.
    HistoryRecord last;
    std::string shownDate;  // "mm/dd/yy"
    std::optional<double> previousClose;
    double low52 = 0;
    double high52 = 0;
};

// By how much a price of `day`, as it was, is to be multiplied to stand beside one of `shown`.
double ShareFactor(const std::string& ticker, const Date& day, const Date& shown) {
    const PracticeSplit* const split = PracticeSplitOf(ticker);
    if (split == nullptr || day >= split->day || shown < split->day) return 1;
    return static_cast<double>(split->oldShares) / split->newShares;
}

// Of the first `count` days, of which there is one.
void TakeShownDay(const std::string& ticker, const std::vector<PracticeDay>& rows, std::size_t count,
                  TickerHistory& history) {
    constexpr int kDaysInYear = 365;
    const PracticeDay& shown = rows[count - 1];
    history.last = shown.record;
    history.low52 = shown.record.HistoryLow;
    history.high52 = shown.record.HistoryHigh;
    for (std::size_t i = count - 1; i > 0 && AddDays(rows[i - 1].day, kDaysInYear) > shown.day; --i) {
        const HistoryRecord& record = rows[i - 1].record;
        const double factor = ShareFactor(ticker, rows[i - 1].day, shown.day);
        if (i == count - 1) history.previousClose = record.HistoryClose * factor;
        history.low52 = std::min(history.low52, record.HistoryLow * factor);
        history.high52 = std::max(history.high52, record.HistoryHigh * factor);
    }
}

// `rows` is not empty.
TickerHistory MakeHistory(const std::string& ticker, const std::vector<PracticeDay>& rows,
                          const PracticeTarget& target) {
    const int move = DaysToMoveTicker(ticker, rows.back().day, target.today);
    TickerHistory history;
    for (const PracticeDay& row : rows) {
        const Date day = AddDays(row.day, move);
        if (day >= target.today) break;
        HistoryRecord record = row.record;
        record.HistoryDate = FormatDate(day);
        const std::optional<Path> path =
            YearFilePath(target.quoteFolder, ticker, YearDigits(record.HistoryDate));
        if (!path) break;
        if (history.files.empty() || history.files.back().path != *path) history.files.push_back({*path, {}});
        AppendHistoryLine(record, history.files.back().bytes);
        history.shownDate = record.HistoryDate;
        ++history.days;
    }
    if (history.days > 0) TakeShownDay(ticker, rows, history.days, history);
    return history;
}

// Names what the target already holds, or nothing.
std::string AlreadyThere(const std::vector<PracticeTicker>& tickers, const PracticeTarget& target) {
    std::vector<std::string_view> held;
    for (const PracticeTicker& row : tickers) {
        if (!YearFilesOf(target.quoteFolder, row.ticker).empty()) held.push_back(row.ticker);
    }
    constexpr std::size_t kNamed = 3;
    std::string names;
    for (std::size_t i = 0; i < std::min(held.size(), kNamed); ++i) {
        names.append(i == 0 ? "year files of " : ", ").append(held[i]);
    }
    if (held.size() > kNamed) {
        names.append(" and ").append(std::to_string(held.size() - kNamed)).append(" others");
    }
    std::error_code error;
    if (held.empty() && std::filesystem::exists(target.dataFolder / kPracticeTable, error)) {
        names = kPracticeTable;
    }
    return names;
}

// Prepares a ticker's year files and the end of those of an earlier filling that it no longer has.
Failure PrepareHistory(const std::string& ticker, const TickerHistory& history,
                       const std::string& quoteFolder, FileChange& change) {
    for (const YearFile& file : history.files) {
        if (Failure fault = change.Write(file.path, file.bytes)) return fault;
    }
    Failure unread;
    const std::vector<Path> former = YearFilesOf(quoteFolder, ticker, &unread);
    if (unread) return unread;
    for (const Path& path : former) {
        const bool kept = std::any_of(history.files.begin(), history.files.end(),
                                      [&](const YearFile& file) { return file.path == path; });
        if (kept) continue;
        if (Failure fault = change.Delete(path)) return fault;
    }
    return {};
}

void TakePrices(const TickerHistory& history, std::size_t row, QuoteArrays& rows) {
    constexpr int kDecimals = 4;
    constexpr const char* kSessionEnd = "16:00";
    const auto text = [](double price) { return ShortestNumber(RoundDecimals(price, kDecimals)); };
    rows.LastPrices[row] = text(history.last.HistoryClose);
    rows.OpenPrices[row] = text(history.last.HistoryOpen);
    rows.HighPrices[row] = text(history.last.HistoryHigh);
    rows.LowPrices[row] = text(history.last.HistoryLow);
    rows.Volumes[row] = ShortestNumber(history.last.HistoryVolume);
    rows.Low52[row] = text(history.low52);
    rows.High52[row] = text(history.high52);
    rows.TradeDates[row] = history.shownDate;
    rows.TradeTimes[row] = kSessionEnd;
    if (history.previousClose) {
        rows.PreviousCloses[row] = text(*history.previousClose);
        rows.ChangeValues[row] = text(history.last.HistoryClose - *history.previousClose);
        CalculateChangePercent(rows, row);
    }
}

QuoteTable MakeTable(const std::vector<PracticeTicker>& tickers,
                     const std::vector<TickerHistory>& histories) {
    QuoteTable table;
    table.AppendLine(QuoteHeader());
    QuoteArrays rows;
    rows.MakeRoom(tickers.size());
    const std::size_t marketCap = table.ColumnOf("Market Cap (M)").value();
    for (std::size_t i = 0; i < tickers.size(); ++i) {
        table.AppendLine(tickers[i].ticker);
        const std::size_t row = table.RowCount() - 1;
        rows.Symbols[row] = tickers[i].ticker;
        rows.Names[row] = tickers[i].name;
        rows.Exchanges[row] = tickers[i].exchange;
        if (histories[i].days > 0) TakePrices(histories[i], row, rows);
        WriteRow(rows, row, table);
        // The only number among them, which nobody knows here.
        table.SetText(row, marketCap, {});
    }
    return table;
}

PracticeResult Ended(PracticeOutcome outcome, std::string detail) {
    PracticeResult result;
    result.outcome = outcome;
    result.detail = std::move(detail);
    return result;
}

PracticeResult NoPrices(const Path& file) {
    return Ended(PracticeOutcome::NoPrices, NoPracticePrices(file));
}

PracticeResult Failed(const Failure& failure) {
    return Ended(PracticeOutcome::Failed, Sentence(failure));
}

PracticeResult WritePractice(const std::vector<PracticeTicker>& tickers,
                             const std::vector<TickerHistory>& histories, const PracticeTarget& target) {
    for (const Path& folder : {target.dataFolder, Path(target.quoteFolder)}) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        if (error) return Failed(FailedTo(FailureKind::Make, folder, error));
    }
    PracticeResult result;
    result.tickers = tickers.size();
    FileChange change(target.place, "Practice Table",
                      target.replace ? ChangeKeeps::ForUndo : ChangeKeeps::UntilDone);
    Failure fault;
    for (std::size_t i = 0; i < tickers.size() && !fault; ++i) {
        fault = PrepareHistory(tickers[i].ticker, histories[i], target.quoteFolder, change);
        result.days += histories[i].days;
    }
    if (!fault)
        fault = PrepareQuoteTable(MakeTable(tickers, histories), target.dataFolder / kPracticeTable, change);
    if (!fault) fault = change.Commit();
    return fault ? Failed(fault) : result;
}

}  // namespace

std::string NoPracticePrices(const Path& place) {
    return Sentence({.kind = FailureKind::Read, .file = place, .text = "it holds no practice prices"});
}

PracticeResult CheckPractice(const Path& practiceFolder, const PracticeTarget& target) {
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(practiceFolder);
    if (tickers.empty()) return NoPrices(practiceFolder / kPracticeTickerFile);
    for (const PracticeTicker& row : tickers) {
        const Path file = PracticePriceFile(practiceFolder, row.ticker);
        if (!IsRegularFile(file)) return NoPrices(file);
    }
    std::string held = target.replace ? std::string() : AlreadyThere(tickers, target);
    if (!held.empty()) return Ended(PracticeOutcome::AlreadyThere, std::move(held));
    return {};
}

PracticeResult FillPractice(const Path& practiceFolder, const PracticeTarget& target) {
    PracticeResult result = CheckPractice(practiceFolder, target);
    if (result.outcome != PracticeOutcome::Filled) return result;
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(practiceFolder);
    std::vector<TickerHistory> histories;
    for (const PracticeTicker& row : tickers) {
        const std::vector<PracticeDay> prices = ReadPracticeDays(practiceFolder, row.ticker);
        if (prices.empty()) {
            return NoPrices(PracticePriceFile(practiceFolder, row.ticker));
        }
        histories.push_back(MakeHistory(row.ticker, prices, target));
    }
    return WritePractice(tickers, histories, target);
}

}  // namespace brantlow
