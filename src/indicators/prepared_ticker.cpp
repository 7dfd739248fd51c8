#include "indicators/prepared_ticker.h"

#include <algorithm>
#include <utility>

#include "indicators/indicator_pass.h"
#include "indicators/series_folding.h"

namespace brantlow {

void PreparedTicker::Prepare(const std::string& quoteFolder, std::span<const std::string> years,
                             Interval interval, std::string_view ticker, const std::optional<Date>& lastDay) {
    unreadable_ = history_->Load(quoteFolder, ticker, years, lastDay);
    MakeWindow(interval);
}

void PreparedTicker::PrepareNewest(const std::string& quoteFolder, std::span<const std::string> years,
                                   std::string_view ticker) {
    unreadable_ = history_->LoadNewest(quoteFolder, ticker, years, kDefaultWindow);
    MakeWindow(Interval::Daily);
}

void PreparedTicker::MakeWindow(Interval interval) {
    if (unreadable_ || !IsRegular()) return;
    const std::size_t bars = history_->BarCount(interval);
    barCount_ = std::min(bars, kDefaultWindow);
    stride_ = barCount_ + 1;
    newestOpenEmptied_ = false;
    numbers_.resize(stride_ * kNumberFields.size());
    texts_.resize(stride_ * kTextFields.size());
    if (history_->HasElementZero()) TakeBar(Interval::Daily, 0, 0);
    for (std::size_t k = 1; k <= barCount_; ++k) TakeBar(interval, bars - barCount_ + k, k);
    if (barCount_ > kTooFewBarsToEvaluate) ComputeIndicatorsAhead();
}

// Only the newest bar of all can have an emptied open, and it ends the window.
void PreparedTicker::TakeBar(Interval interval, std::size_t from, std::size_t to) {
    HistoryBar bar;
    history_->Bar(interval, from, bar);
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot) Numbers(slot)[to] = bar.row.numbers[slot];
    for (std::size_t slot = 0; slot < kTextFields.size(); ++slot) Texts(slot)[to] = bar.row.texts[slot];
    newestOpenEmptied_ = bar.openEmptied;
}

void PreparedTicker::ComputeIndicatorsAhead() {
    const BarView bars{barCount_,
                       Numbers(kCloseSlot),
                       Numbers(kLowSlot),
                       Numbers(kHighSlot),
                       Numbers(kVolumeSlot),
                       Numbers(kPERatioSlot),
                       Numbers(kEPSttmSlot),
                       Numbers(kEPSestSlot),
                       Numbers(kPriceToSalesSlot),
                       Numbers(kMarketCapSlot)};
    ComputeBlock(bars, nullptr, indicators_);
}

void PreparedTicker::StoreSeries(WorkingSeries& series) const {
    const std::size_t first = history_->HasElementZero() ? 0 : 1;
    const std::size_t count = barCount_ + 1 - first;
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot) {
        NumberSeries& numbers = series.*kNumberFields[slot].series;
        std::copy_n(Numbers(slot) + first, count, numbers.MutableValues() + first);
        std::fill_n(numbers.MutableStates() + first, count, ElementState::Written);
    }
    for (std::size_t slot = 0; slot < kTextFields.size(); ++slot) {
        TextSeries& texts = series.*kTextFields[slot].series;
        for (std::size_t i = first; i <= barCount_; ++i) texts.Set(i, Texts(slot)[i]);
    }
    const bool nothingRead = barCount_ == 0 && history_->NewestOpenEmptied();
    if (newestOpenEmptied_ || nothingRead) series.OpenPrice.Empty(barCount_);
    series.LastRowRead = history_->BarCount();
    series.BarCount = series.LastBar = barCount_;
}

void PreparedTicker::StoreIndicators(Analysis& analysis) const {
    if (barCount_ <= kTooFewBarsToEvaluate) return;
    if (indicators_.NeedsOld()) {
        ComputeIndicators(analysis.series, analysis.indicators);
        return;
    }
    indicators_.Store(analysis.indicators);
    StoreFirstBars(ViewOf(analysis.series), analysis.indicators);
}

bool PreparedTicker::Covers(std::span<const IndicatorSlot> slots) const {
    if (barCount_ <= kTooFewBarsToEvaluate || indicators_.NeedsOld()) return false;
    return std::all_of(slots.begin(), slots.end(),
                       [this](IndicatorSlot slot) { return indicators_.IsWhole(slot); });
}

std::unique_ptr<HistoryText> PreparedTicker::ExchangeHistory(std::unique_ptr<HistoryText> other) {
    return std::exchange(history_, std::move(other));
}

}  // namespace brantlow
