#include "store/practice.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "store/columns.h"
#include "store/history_record.h"
#include "store/quote_table.h"
#include "store/table_files.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

constexpr int kWeek = 7;
constexpr std::string_view kTickerFile = "tickers.csv";

Path PriceFile(const Path& practiceFolder, const std::string& ticker) {
    return practiceFolder / "prices" / (ticker + ".csv");
}

// Tickers that are placed by another day than their last, one that has to fall into the last week.
struct Anchor {
    std::string_view ticker;
    Date day;
};

using namespace std::chrono_literals;
constexpr std::array<Anchor, 1> kAnchors = {{{"NFLX", 2015y / std::chrono::July / 15d}}};

struct PriceRow {
    Date day;
    HistoryRecord record;  // without its date
};

// One year file to be.
struct YearFile {
    Path path;
    std::string bytes;
};

struct TickerHistory {
    std::vector<YearFile> files;
    std::size_t days = 0;
};

std::optional<PriceRow> ParsePriceRow(std::string_view line) {
    enum { kDate, kOpen, kHigh, kLow, kClose, kVolume, kFieldCount };
    const std::vector<std::string_view> fields = SplitAt(line, ',');
    if (fields.size() < kFieldCount) return std::nullopt;
    const std::optional<Date> day = ParseDate(fields[kDate]);
    if (!day) return std::nullopt;
    PriceRow row{*day, {}};
    row.record.HistoryOpen = LeadingNumber(fields[kOpen]);
    row.record.HistoryHigh = LeadingNumber(fields[kHigh]);
    row.record.HistoryLow = LeadingNumber(fields[kLow]);
    row.record.HistoryClose = LeadingNumber(fields[kClose]);
    row.record.HistoryVolume = LeadingNumber(fields[kVolume]);
    RoundHistoryRecord(row.record);
    return row;
}

// The rows of a price file, oldest first; the header and what cannot be read are left out.
std::vector<PriceRow> ReadPrices(const Path& file) {
    const std::string bytes = BytesOrEmpty(file);
    std::vector<PriceRow> rows;
    LineReader lines(bytes);
    for (std::string_view line; lines.Next(line);) {
        if (auto row = ParsePriceRow(line)) rows.push_back(std::move(*row));
    }
    return rows;
}

int DaysToMoveTicker(std::string_view ticker, const Date& lastDay, const Date& today) {
    for (const Anchor& anchor : kAnchors) {
        if (anchor.ticker == ticker) return DaysToMove(anchor.day, AddDays(today, -kWeek));
    }
    return DaysToMove(lastDay, today);
}

// `rows` is not empty.
TickerHistory MakeHistory(const std::string& ticker, const std::vector<PriceRow>& rows,
                          const PracticeTarget& target) {
    const int move = DaysToMoveTicker(ticker, rows.back().day, target.today);
    TickerHistory history;
    for (const PriceRow& row : rows) {
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

// Writes a ticker's year files and removes those of an earlier filling that it no longer has.
std::error_code WriteHistory(const std::string& ticker, const TickerHistory& history,
                             const std::string& quoteFolder) {
    for (const YearFile& file : history.files) {
        if (const auto error = WriteWholeFile(file.path, file.bytes, Flush::Later)) return error;
    }
    for (const Path& path : YearFilesOf(quoteFolder, ticker)) {
        const bool kept = std::any_of(history.files.begin(), history.files.end(),
                                      [&](const YearFile& file) { return file.path == path; });
        if (!kept) DeleteOneFile(path);
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

PracticeResult WriteFailed(const Path& path, const std::error_code& error) {
    return Ended(PracticeOutcome::Failed, path.string() + ": " + error.message());
}

PracticeResult WritePractice(const std::vector<PracticeTicker>& tickers,
                             const std::vector<TickerHistory>& histories, const PracticeTarget& target) {
    for (const Path& folder : {target.dataFolder, Path(target.quoteFolder)}) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        if (error) return WriteFailed(folder, error);
    }
    PracticeResult result;
    result.tickers = tickers.size();
    for (std::size_t i = 0; i < tickers.size(); ++i) {
        const auto error = WriteHistory(tickers[i].ticker, histories[i], target.quoteFolder);
        if (error) return WriteFailed(target.quoteFolder + tickers[i].ticker, error);
        result.days += histories[i].days;
    }
    const Path table = target.dataFolder / kPracticeTable;
    if (const auto error = SaveQuoteTable(MakeTable(tickers), table)) return WriteFailed(table, error);
    return result;
}

}  // namespace

std::vector<PracticeTicker> ReadPracticeTickers(const Path& practiceFolder) {
    constexpr std::size_t kFieldCount = 3;
    const std::string bytes = BytesOrEmpty(practiceFolder / kTickerFile);
    std::vector<PracticeTicker> tickers;
    LineReader lines(bytes);
    std::string_view line;
    lines.Next(line);  // the header
    while (lines.Next(line)) {
        const std::vector<Value> fields = ParseRecord(line);
        if (fields.size() < kFieldCount || !HasDatabaseFiles(fields[0].Text())) continue;
        tickers.push_back({fields[0].Text(), fields[1].Text(), fields[2].Text()});
    }
    return tickers;
}

int DaysToMove(const Date& day, const Date& earliest) {
    const auto distance =
        static_cast<int>((std::chrono::sys_days{earliest} - std::chrono::sys_days{day}).count());
    const int beyond = ((-distance % kWeek) + kWeek) % kWeek;
    return distance + beyond;
}

PracticeResult CheckPractice(const Path& practiceFolder, const PracticeTarget& target) {
    const std::vector<PracticeTicker> tickers = ReadPracticeTickers(practiceFolder);
    if (tickers.empty()) return Ended(PracticeOutcome::NoPrices, (practiceFolder / kTickerFile).string());
    for (const PracticeTicker& row : tickers) {
        const Path file = PriceFile(practiceFolder, row.ticker);
        if (!IsRegularFile(file)) return Ended(PracticeOutcome::NoPrices, file.string());
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
        const Path file = PriceFile(practiceFolder, row.ticker);
        const std::vector<PriceRow> prices = ReadPrices(file);
        if (prices.empty()) return Ended(PracticeOutcome::NoPrices, file.string());
        histories.push_back(MakeHistory(row.ticker, prices, target));
    }
    return WritePractice(tickers, histories, target);
}

}  // namespace brantlow
