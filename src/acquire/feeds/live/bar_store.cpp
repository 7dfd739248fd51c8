#include "acquire/feeds/live/bar_store.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "store/history_rewrite.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

constexpr int kDecimals = 3;

// P/E, PEG and P/S are ratios to the price and stay.
constexpr std::array<double HistoryRecord::*, 10> kDivided = {
    &HistoryRecord::HistoryClose,        &HistoryRecord::HistoryLow,       &HistoryRecord::HistoryHigh,
    &HistoryRecord::HistoryEPS,          &HistoryRecord::HistoryEPSest,    &HistoryRecord::HistoryDividend,
    &HistoryRecord::HistoryOpen,         &HistoryRecord::History52WeekLow, &HistoryRecord::History52WeekHigh,
    &HistoryRecord::HistoryPreviousClose};

void RestateRecord(HistoryRecord& record, double factor) {
    for (double HistoryRecord::*field : kDivided) {
        record.*field = RoundDecimals(record.*field / factor, kDecimals);
    }
    record.HistoryVolume = RoundDecimals(record.HistoryVolume * factor, 0);
}

std::optional<sys_days> DayOfRecord(std::string_view date) {
    const auto read = ParseDate(date);
    return read ? std::optional(sys_days{*read}) : std::nullopt;
}

// The year that a file's ending stands for; nothing for another ending.
std::optional<int> YearOfFile(const Path& file) {
    const std::string ending = file.extension().string();
    constexpr std::size_t kEndingLength = 3;
    if (ending.size() != kEndingLength) return std::nullopt;
    const auto year = ParseDate("01/01/" + ending.substr(1));
    return year ? std::optional(static_cast<int>(year->year())) : std::nullopt;
}

// The last `count` lines of a text, the last first.
std::vector<std::string_view> LastLines(std::string_view bytes, std::size_t count) {
    std::vector<std::string_view> lines;
    while (!bytes.empty() && lines.size() < count) {
        if (bytes.back() == '\n') bytes.remove_suffix(1);
        const std::size_t before = bytes.rfind('\n');
        const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
        std::string_view line = bytes.substr(begin);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!line.empty()) lines.push_back(line);
        bytes = bytes.substr(0, begin);
    }
    return lines;
}

// Fills what is still missing of the end by the lines of a file.
void TakeLines(std::string_view bytes, StoredEnd& end) {
    for (const std::string_view line : LastLines(bytes, 2)) {
        const HistoryRecord record = ParseHistoryLine(line);
        const auto day = DayOfRecord(record.HistoryDate);
        if (!day) continue;
        if (!end.day) {
            end.day = day;
            end.close = record.HistoryClose;
        } else if (!end.dayBefore) {
            end.dayBefore = day;
            end.closeBefore = record.HistoryClose;
        }
    }
}

struct RestatedText {
    std::string bytes;
    std::size_t days = 0;
};

RestatedText Restated(std::string_view bytes, sys_days splitDay, double factor) {
    RestatedText text;
    LineReader reader(bytes);
    bool isBefore = false;
    for (std::string_view line; reader.Next(line);) {
        HistoryRecord record = ParseHistoryLine(line);
        if (const auto day = DayOfRecord(record.HistoryDate)) isBefore = *day < splitDay;
        if (isBefore) {
            RestateRecord(record, factor);
            ++text.days;
        }
        AppendHistoryLine(record, text.bytes);
    }
    return text;
}

}  // namespace

HistoryRecord RecordOfBar(const SourceBar& bar) {
    HistoryRecord record;
    record.HistoryDate = FormatDate(Date{bar.day});
    record.HistoryClose = bar.close;
    record.HistoryLow = bar.low;
    record.HistoryHigh = bar.high;
    record.HistoryVolume = bar.volume;
    record.HistoryOpen = bar.open;
    RoundHistoryRecord(record);
    return record;
}

void AdjustBars(std::vector<SourceBar>& bars, const std::vector<SourceSplit>& splits) {
    for (const SourceSplit& split : splits) {
        for (SourceBar& bar : bars) {
            if (bar.day >= split.day) continue;
            bar.open /= split.factor;
            bar.high /= split.factor;
            bar.low /= split.factor;
            bar.close /= split.factor;
            bar.volume *= split.factor;
        }
    }
}

HistoryWrite WriteHistory(const std::string& quoteFolder, std::string_view ticker,
                          const std::vector<SourceBar>& bars, const std::vector<Path>& oldFiles,
                          FileChange& change) {
    HistoryWrite write;
    YearFileTexts texts;
    for (const SourceBar& bar : bars) {
        const HistoryRecord record = RecordOfBar(bar);
        if (!(record.HistoryClose > 0)) continue;
        texts.Add(record);
        ++write.days;
    }
    if (write.days == 0) return write;
    std::vector<Path> written;
    for (const YearFileText& text : texts.Files()) {
        const auto file = YearFilePath(quoteFolder, ticker, text.year);
        if (!file) continue;
        if (write.fault = change.Write(*file, text.bytes); write.fault) return write;
        written.push_back(*file);
    }
    for (const Path& file : oldFiles) {
        if (std::find(written.begin(), written.end(), file) != written.end()) continue;
        if (write.fault = change.Delete(file); write.fault) return write;
    }
    return write;
}

StoredEnd ReadStoredEnd(const std::vector<Path>& files, sys_days today, Failure& fault) {
    const int thisYear = static_cast<int>(Date{today}.year());
    std::vector<std::pair<int, Path>> byYear;
    for (const Path& file : files) {
        const auto year = YearOfFile(file);
        if (year && *year <= thisYear) byYear.emplace_back(*year, file);
    }
    std::sort(byYear.rbegin(), byYear.rend());
    StoredEnd end;
    for (const auto& [year, file] : byYear) {
        const ReadResult read = ReadWholeFile(file);
        if (read.outcome == ReadOutcome::Failed) {
            fault = FailedTo(FailureKind::Read, file, read.error);
            return end;
        }
        TakeLines(WithoutHalfLine(read.bytes), end);
        if (end.dayBefore) break;
    }
    return end;
}

Failure AddRecords(const std::string& quoteFolder, std::string_view ticker,
                   const std::vector<HistoryRecord>& records, YearGrowth growth, FileChange& change,
                   std::vector<Path>& halfLines) {
    YearFileTexts texts;
    for (const HistoryRecord& record : records) texts.Add(record);
    for (const YearFileText& text : texts.Files()) {
        const auto file = YearFilePath(quoteFolder, ticker, text.year);
        if (!file) continue;
        const AddedLines added = AddLines(*file, text.bytes, growth, change);
        if (added.fault) return added.fault;
        if (added.hadHalfLine) halfLines.push_back(*file);
    }
    return {};
}

Restatement RestateHistory(const std::vector<Path>& files, sys_days splitDay, double factor,
                           FileChange& change) {
    Restatement result;
    for (const Path& file : files) {
        const ReadResult read = ReadWholeFile(change.Where(file));
        if (read.outcome == ReadOutcome::Failed) {
            result.fault = FailedTo(FailureKind::Read, file, read.error);
            return result;
        }
        const std::string_view whole = WithoutHalfLine(read.bytes);
        const RestatedText text = Restated(whole, splitDay, factor);
        if (text.days == 0) continue;
        if (result.fault = change.Write(file, text.bytes); result.fault) return result;
        if (whole.size() < read.bytes.size()) result.halfLines.push_back(file);
        result.days += text.days;
    }
    return result;
}

}  // namespace brantlow
