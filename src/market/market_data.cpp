#include "market/market_data.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brantlow {

namespace {

using std::chrono::sys_days;

// The index of the practice prices, and how tables that follow a live source name it; the sources' own
// spellings lead to that name.
constexpr std::string_view kPractisedIndex = "SPX";
constexpr std::string_view kIndexOfTables = "^GSPC";

MarketDay DayOf(const PracticeDay& row) {
    const HistoryRecord& record = row.record;
    return {sys_days{row.day}, record.HistoryOpen,  record.HistoryHigh,
            record.HistoryLow, record.HistoryClose, record.HistoryVolume};
}

// The index of the first day behind `last`.
std::size_t CountUpTo(const std::vector<MarketDay>& days, sys_days last) {
    const auto end = std::upper_bound(days.begin(), days.end(), last,
                                      [](sys_days day, const MarketDay& row) { return day < row.day; });
    return static_cast<std::size_t>(end - days.begin());
}

}  // namespace

int MarketTicker::DaysMoved(const Date& today) const {
    return DaysToMoveTicker(about.ticker, Date{days.back().day}, weeksOf.value_or(today));
}

MarketData MarketData::Read(const Path& practiceFolder, std::optional<Date> weeksOf) {
    MarketData data;
    for (PracticeTicker& about : ReadPracticeTickers(practiceFolder)) {
        MarketTicker ticker;
        ticker.weeksOf = weeksOf;
        const std::vector<PracticeDay> rows = ReadPracticeDays(practiceFolder, about.ticker);
        std::transform(rows.begin(), rows.end(), std::back_inserter(ticker.days), DayOf);
        if (ticker.days.empty()) continue;
        std::string name = about.ticker;
        ticker.about = std::move(about);
        data.tickers_.emplace(std::move(name), std::move(ticker));
    }
    return data;
}

const MarketTicker* MarketData::Find(std::string_view ticker) const {
    const auto found = tickers_.find(ticker == kIndexOfTables ? kPractisedIndex : ticker);
    return found == tickers_.end() ? nullptr : &found->second;
}

TradedDays::TradedDays(const MarketTicker& ticker, const Date& today)
    : days_(&ticker.days),
      move_(ticker.DaysMoved(today)),
      count_(CountUpTo(ticker.days, sys_days{today} - move_)) {
    const PracticeSplit* split = PracticeSplitOf(ticker.about.ticker);
    if (split == nullptr) return;
    splitIndex_ = std::min(CountUpTo(ticker.days, sys_days{split->day} - std::chrono::days{1}), count_);
    if (splitIndex_ < count_) factorBeforeSplit_ = static_cast<double>(split->oldShares) / split->newShares;
}

Date TradedDays::DateOf(std::size_t index) const {
    return Date{At(index).day + move_};
}

std::size_t TradedDays::FirstFrom(const Date& date) const {
    return std::min(CountUpTo(*days_, sys_days{date} - move_ - std::chrono::days{1}), count_);
}

double TradedDays::SplitFactorAt(std::size_t index) const {
    return index < splitIndex_ ? factorBeforeSplit_ : 1;
}

}  // namespace brantlow
