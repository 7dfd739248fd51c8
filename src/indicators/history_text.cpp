#include "indicators/history_text.h"

#include <cstdint>
#include <limits>
#include <optional>

#include "base/file_end.h"
#include "base/files.h"
#include "indicators/record_days.h"
#include "indicators/series_folding.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

constexpr std::size_t kUsualBytes = std::size_t{4} << 20U;
constexpr std::size_t kLargestGroup = kMonthly.groupSize;

const Folding* FoldingOf(Interval interval) {
    if (interval == Interval::Weekly) return &kWeekly;
    if (interval == Interval::Monthly) return &kMonthly;
    return nullptr;
}

// Bytes of a row with long numbers in all fields.
constexpr std::size_t kMostUsualRow = 256;
// A year's file of this size holds no more rows than the series has room for, unless it is full of lines
// without a record.
constexpr std::uintmax_t kMostUsualYear = std::uintmax_t{128} << 10U;

// Whether a file that nobody reads is one whose rows end below the window.
bool IsLeftOutSafely(const Path& path) {
    const std::uintmax_t bytes = BytesOfFile(path);
    return bytes > 0 && bytes <= kMostUsualYear;
}

// The place behind the first line feed of text[from, to).
std::size_t BehindFirstLine(const std::string& text, std::size_t from, std::size_t to) {
    const std::size_t feed = std::string_view(text.data(), to).find('\n', from);
    return feed == std::string_view::npos ? to : feed + 1;
}

// Folds the bars of `group`, the first of which is bars[0].
void FoldBars(const FoldGroup& group, const HistoryBar* bars, HistoryBar& folded) {
    folded = bars[group.last - group.first];
    const std::size_t open = FoldNumbers(
        group, [&](NumberSlot slot, std::size_t j) { return bars[j - group.first].row.numbers[slot]; },
        [&](NumberSlot slot, double value) { folded.row.numbers[slot] = value; });
    folded.openEmptied = bars[open - group.first].openEmptied;
}

}  // namespace

Failure HistoryText::Load(const std::string& quoteFolder, std::string_view ticker,
                          std::span<const std::string> years, const std::optional<Date>& lastDay) {
    Forget();
    for (const std::string& year : years) {
        const std::size_t from = used_;
        const std::optional<Path> path = YearFilePath(quoteFolder, ticker, year);
        Failure failure = path ? ReadBehindIfThere(*path, buffer_, used_) : Failure{};
        if (failure) {
            rows_.clear();
            return std::move(failure).Of(ticker);
        }
        if (lastDay) DropRecordsAfter(*lastDay, buffer_, from, used_);
        if (used_ == from && rows_.empty()) firstIndex_ = 0;
        newestOpenEmptied_ = used_ == from;
        AddYear(from, used_);
    }
    barCount_ = rows_.empty() ? 0 : firstIndex_ + rows_.size() - 1;
    regular_ = regular_ && barCount_ < kMostRows;
    return {};
}

void HistoryText::Forget() {
    used_ = 0;
    rows_.clear();
    firstIndex_ = 1;
    newestOpenEmptied_ = false;
    regular_ = true;
    partial_ = false;
    barCount_ = 0;
}

Failure HistoryText::LoadNewest(const std::string& quoteFolder, std::string_view ticker,
                                std::span<const std::string> years, std::size_t bars) {
    if (TryNewest(quoteFolder, ticker, years, bars)) return {};
    return Load(quoteFolder, ticker, years, std::nullopt);
}

// From the newest year back until there are enough rows. A year is read from its end.
bool HistoryText::TryNewest(const std::string& quoteFolder, std::string_view ticker,
                            std::span<const std::string> years, std::size_t bars) {
    Forget();
    std::vector<Path> paths;
    for (const std::string& year : years) {
        auto path = YearFilePath(quoteFolder, ticker, year);
        if (!path) return false;
        paths.push_back(std::move(*path));
    }
    // Without the oldest file the first row of all would be element 0.
    if (!IsLeftOutSafely(paths.front())) return false;
    std::vector<LineSpan> parts;  // of the buffer, newest year first
    std::size_t rows = 0;
    for (std::size_t left = paths.size(); rows <= bars; --left) {
        if (left == 1) return false;
        const std::size_t from = used_;
        bool isWhole = true;
        const std::size_t most = (bars + 2 - rows) * kMostUsualRow;
        if (ReadEndIntoBuffer(paths[left - 1], most, buffer_, used_, isWhole) == ReadOutcome::Failed)
            return false;
        const std::size_t start = isWhole ? from : BehindFirstLine(buffer_, from, used_);
        rows_.clear();
        ScanLines(buffer_.data(), start, used_, rows_);
        const std::size_t overwritten = rows > 0 && !rows_.empty() ? 1 : 0;
        rows += rows_.size() - overwritten;
        parts.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(used_)});
        if (rows <= bars && !isWhole) return false;
    }
    for (std::size_t i = 1; i + parts.size() < paths.size(); ++i) {
        if (!IsLeftOutSafely(paths[i])) return false;
    }
    rows_.clear();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) AddYear(part->start, part->end);
    newestOpenEmptied_ = parts.front().start == parts.front().end;
    barCount_ = rows_.size();
    partial_ = regular_;
    return regular_;
}

// The first row of a year overwrites the last row kept so far.
void HistoryText::AddYear(std::size_t from, std::size_t to) {
    if (from == to) return;
    if (to > std::numeric_limits<std::uint32_t>::max()) {
        regular_ = false;
        return;
    }
    if (!rows_.empty()) rows_.pop_back();
    const std::size_t fewestCommas = ScanLines(buffer_.data(), from, to, rows_);
    if (fewestCommas + 1 < kHistoryFieldCount) regular_ = false;
}

std::size_t HistoryText::BarCount(Interval interval) const {
    const Folding* const folding = FoldingOf(interval);
    return folding == nullptr ? barCount_ : FoldedCount(barCount_, *folding);
}

std::string_view HistoryText::Row(std::size_t index) const {
    const LineSpan& span = rows_[index - firstIndex_];
    std::string_view line(buffer_.data() + span.start, span.end - span.start);
    // A CR before the line end is part of it.
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

void HistoryText::DailyBar(std::size_t index, HistoryBar& bar) const {
    ParseHistoryRow(Row(index), bar.row);
    bar.openEmptied = newestOpenEmptied_ && index == barCount_;
    if (bar.openEmptied) bar.row.numbers[kOpenSlot] = 0;
}

void HistoryText::Bar(Interval interval, std::size_t index, HistoryBar& bar) const {
    const Folding* const folding = FoldingOf(interval);
    if (folding == nullptr || index == 0 || index > FoldedCount(barCount_, *folding)) {
        DailyBar(index, bar);
        return;
    }
    const FoldGroup group = GroupOf(index, barCount_, *folding);
    std::array<HistoryBar, kLargestGroup> bars;
    for (std::size_t j = group.first; j <= group.last; ++j) DailyBar(j, bars[j - group.first]);
    FoldBars(group, bars.data(), bar);
}

void HistoryText::TrimMemory() {
    if (buffer_.size() <= kUsualBytes) return;
    std::string().swap(buffer_);
    used_ = 0;
}

}  // namespace brantlow
