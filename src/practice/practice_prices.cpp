#include "practice/practice_prices.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

constexpr int kWeek = 7;

std::optional<PracticeDay> ParsePriceRow(std::string_view line) {
    enum { kDate, kOpen, kHigh, kLow, kClose, kVolume, kFieldCount };
    const std::vector<std::string_view> fields = SplitAt(line, ',');
    if (fields.size() < kFieldCount) return std::nullopt;
    const std::optional<Date> day = ParseDate(fields[kDate]);
    if (!day) return std::nullopt;
    PracticeDay row{*day, {}};
    row.record.HistoryOpen = LeadingNumber(fields[kOpen]);
    row.record.HistoryHigh = LeadingNumber(fields[kHigh]);
    row.record.HistoryLow = LeadingNumber(fields[kLow]);
    row.record.HistoryClose = LeadingNumber(fields[kClose]);
    row.record.HistoryVolume = LeadingNumber(fields[kVolume]);
    RoundHistoryRecord(row.record);
    return row;
}

}  // namespace

std::vector<PracticeTicker> ReadPracticeTickers(const Path& practiceFolder) {
    constexpr std::size_t kFieldCount = 3;
    const std::string bytes = BytesOrEmpty(practiceFolder / kPracticeTickerFile);
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

Path PracticePriceFile(const Path& practiceFolder, const std::string& ticker) {
    return practiceFolder / "prices" / (ticker + ".csv");
}

std::vector<PracticeDay> ReadPracticeDays(const Path& practiceFolder, const std::string& ticker) {
    const std::string bytes = BytesOrEmpty(PracticePriceFile(practiceFolder, ticker));
    std::vector<PracticeDay> rows;
    LineReader lines(bytes);
    for (std::string_view line; lines.Next(line);) {
        if (auto row = ParsePriceRow(line)) rows.push_back(std::move(*row));
    }
    return rows;
}

const PracticeSplit* PracticeSplitOf(std::string_view ticker) {
    const auto found = std::find_if(kPracticeSplits.begin(), kPracticeSplits.end(),
                                    [&](const PracticeSplit& split) { return split.ticker == ticker; });
    return found == kPracticeSplits.end() ? nullptr : &*found;
}

int DaysToMove(const Date& day, const Date& earliest) {
    const auto distance =
        static_cast<int>((std::chrono::sys_days{earliest} - std::chrono::sys_days{day}).count());
    const int beyond = ((-distance % kWeek) + kWeek) % kWeek;
    return distance + beyond;
}

int DaysToMoveTicker(std::string_view ticker, const Date& lastDay, const Date& today) {
    const PracticeSplit* split = PracticeSplitOf(ticker);
    return split != nullptr ? DaysToMove(split->day, AddDays(today, -kWeek)) : DaysToMove(lastDay, today);
}

}  // namespace brantlow
