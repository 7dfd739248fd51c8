#include "practice/practice.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "practice/practice_prices.h"
#include "store/columns.h"
#include "store/history_record.h"
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
};

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
        ++history.days;
    }
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

QuoteTable MakeTable(const std::vector<PracticeTicker>& tickers) {
    QuoteTable table;
    table.AppendLine(QuoteHeader());
    const std::size_t name = table.ColumnOf("Name").value();
    const std::size_t exchange = table.ColumnOf("Exchange").value();
    for (const PracticeTicker& row : tickers) {
        table.AppendLine(row.ticker);
        table.SetText(table.RowCount() - 1, name, row.name);
        table.SetText(table.RowCount() - 1, exchange, row.exchange);
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
    if (!fault) fault = PrepareQuoteTable(MakeTable(tickers), target.dataFolder / kPracticeTable, change);
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
