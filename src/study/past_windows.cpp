#include "study/past_windows.h"

#include <algorithm>
#include <limits>

#include "indicators/record_days.h"
#include "indicators/year_plan.h"
#include "study/study_days.h"

namespace brantlow {

namespace {

constexpr std::int32_t kNoDay = std::numeric_limits<std::int32_t>::min();
// Daily bars that a first window may need before its day.
constexpr std::size_t kBarsBefore = kDefaultWindow + 1;

std::vector<std::string> YearsUpTo(int year, Interval interval) {
    const Date lastDay = std::chrono::year(year) / std::chrono::December / 31;
    return YearTexts(lastDay, YearsFor(interval));
}

}  // namespace

Failure PastWindows::Load(std::string_view ticker, int year, std::int32_t firstDay) {
    if (Failure failure = text_.Load(quoteFolder_, ticker, YearsUpTo(year, interval_), std::nullopt))
        return failure;
    newest_ = spoiledWeek_ = 0;
    if (!IsPiecewise()) return {};
    Resize(daily_, text_.BarCount());
    ReadRows(firstDay);
    if (interval_ == Interval::Weekly) FoldWeeks();
    return {};
}

// Reads backwards until enough rows before the first day are known; weeks are folded of all rows.
void PastWindows::ReadRows(std::int32_t firstDay) {
    const std::size_t oldest = text_.HasElementZero() ? 0 : 1;
    const std::size_t count = text_.BarCount();
    days_.clear();
    firstRow_ = count + 1;
    std::size_t before = 0;
    while (firstRow_ > oldest && count > 0 && before < kBarsBefore) {
        --firstRow_;
        text_.Bar(Interval::Daily, firstRow_, row_);
        for (std::size_t slot = 0; slot < daily_.size(); ++slot)
            daily_[slot][kWindowMargin + firstRow_] = row_.row.numbers[slot];
        const auto date = DayOfField(row_.row.texts[0]);
        days_.push_back(date ? DayNumberOf(*date) : kNoDay);
        const bool isBefore = days_.back() != kNoDay && days_.back() < firstDay;
        if (interval_ == Interval::Daily && (isBefore || before > 0)) ++before;
    }
    std::reverse(days_.begin(), days_.end());
    std::int32_t above = kNoDay;
    for (std::int32_t& day : days_) {
        if (day == kNoDay) day = above;
        above = day;
    }
}

void PastWindows::FoldWeeks() {
    const std::size_t weeks = text_.BarCount(Interval::Weekly);
    Resize(weekly_, weeks);
    for (std::size_t i = 1; i <= weeks; ++i) FoldWeek(i, text_.BarCount());
}

// Week `index` as it stands when there are `barCount` daily bars.
void PastWindows::FoldWeek(std::size_t index, std::size_t barCount) {
    FoldNumbers(
        GroupOf(index, barCount, kWeekly),
        [this](NumberSlot slot, std::size_t j) { return daily_[slot][kWindowMargin + j]; },
        [this, index](NumberSlot slot, double value) { weekly_[slot][kWindowMargin + index] = value; });
}

std::size_t PastWindows::Newest(std::int32_t day) {
    if (newest_ < firstRow_) newest_ = firstRow_ == 0 ? 0 : firstRow_ - 1;
    const std::size_t end = firstRow_ + days_.size();
    while (newest_ + 1 < end && days_[newest_ + 1 - firstRow_] <= day) ++newest_;
    return newest_;
}

std::size_t PastWindows::LookAt(std::int32_t day, std::size_t fewest, WindowBars& bars) {
    const std::size_t newest = Newest(day);
    if (interval_ == Interval::Daily) {
        const std::size_t window = std::min(newest, kDefaultWindow);
        if (window >= fewest) bars.Look(ViewOf(daily_, newest, window), window);
        return window;
    }
    const std::size_t weeks = FoldedCount(newest, kWeekly);
    const std::size_t window = std::min(weeks, kDefaultWindow);
    if (window < fewest) return window;
    if (spoiledWeek_ != 0) FoldWeek(spoiledWeek_, text_.BarCount());
    spoiledWeek_ = newest < text_.BarCount() && newest % kWeekly.groupSize != 0 ? weeks : 0;
    if (spoiledWeek_ != 0) FoldWeek(weeks, newest);
    bars.Look(ViewOf(weekly_, weeks, window), window);
    return window;
}

// Elements that are not read stay as they are: no window reaches them but for sums that come to nothing.
void PastWindows::Resize(Columns& columns, std::size_t barCount) {
    for (Column& column : columns) column.resize(std::max(column.size(), barCount + 1 + 2 * kWindowMargin));
}

WindowColumns PastWindows::ViewOf(const Columns& columns, std::size_t barCount, std::size_t window) {
    WindowColumns view{};
    for (std::size_t slot = 0; slot < columns.size(); ++slot)
        view[slot] = columns[slot].data() + kWindowMargin + (barCount - window);
    return view;
}

}  // namespace brantlow
