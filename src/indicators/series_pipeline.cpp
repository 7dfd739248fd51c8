#include "indicators/series_pipeline.h"

#include <algorithm>

#include "indicators/year_plan.h"

namespace brantlow {

namespace {

bool HoldsAnything(const NumberSeries& series) {
    for (std::size_t i = 0; i <= kMostRows; ++i) {
        if (series.State(i) != ElementState::NeverWritten) return true;
    }
    return false;
}

}  // namespace

bool IsUntouched(const WorkingSeries& series) {
    return !HoldsAnything(series.ClosePrice);
}

SeriesPipeline::SeriesPipeline(const HistorySource& source, Interval interval,
                               std::vector<std::string> tickers, Analysis& analysis, std::size_t helpers,
                               Leftovers leftovers)
    : quoteFolder_(source.QuoteFolder),
      clock_(source.clock.Today()),
      lastDay_(source.lastDay),
      interval_(interval),
      tickers_(std::move(tickers)),
      years_(YearTexts(source.NewestDay(), YearsFor(interval))),
      analysis_(analysis),
      tails_(interval),
      foldsAskAndBid_(interval != Interval::Daily &&
                      (HoldsAnything(analysis.series.AskPrice) || HoldsAnything(analysis.series.BidPrice))) {
    const bool readsNewest = leftovers == Leftovers::Unused && interval == Interval::Daily && !lastDay_ &&
                             IsUntouched(analysis.series);
    if (readsNewest) replay_.emplace(HistorySource{quoteFolder_, clock_}, tickers_, years_);
    ahead_.emplace(tickers_.size(), helpers,
                   [this](std::size_t place, PreparedTicker& ticker) { Prepare(tickers_[place], ticker); });
}

SeriesPipeline::~SeriesPipeline() {
    ahead_.reset();
    Complete();
}

void SeriesPipeline::Prepare(std::string_view ticker, PreparedTicker& prepared) const {
    if (replay_) {
        prepared.PrepareNewest(quoteFolder_, years_, ticker);
    } else {
        prepared.Prepare(quoteFolder_, years_, interval_, ticker, lastDay_);
    }
}

bool SeriesPipeline::Next() {
    if (ahead_->IsDone()) return false;
    PreparedTicker& prepared = ahead_->Await();
    const std::string& ticker = tickers_[ahead_->Next()];
    unreadable_ = replay_ ? MergeNewest(ticker, prepared) : Merge(ticker, prepared);
    ahead_->Advance();
    return true;
}

Failure SeriesPipeline::MergeNewest(std::string_view ticker, PreparedTicker& prepared) {
    if (prepared.Unreadable()) return prepared.Unreadable();
    if (!prepared.IsRegular()) {
        const std::size_t rows = prepared.History().BarCount();
        replay_->BringUp(ahead_->Next(), std::min(rows + 1, kMostRows), analysis_.series);
        Failure failure = AnalyseTicker({quoteFolder_, clock_}, ticker, interval_, analysis_);
        replay_->Loaded(ahead_->Next());
        return failure;
    }
    prepared.StoreSeries(analysis_.series);
    prepared.StoreIndicators(analysis_);
    // A load empties the open behind its last row; one above the window is the replay's.
    if (!prepared.History().IsPartial()) analysis_.series.OpenPrice.Empty(prepared.History().BarCount() + 1);
    return {};
}

Failure SeriesPipeline::Merge(std::string_view ticker, PreparedTicker& prepared) {
    if (prepared.Unreadable()) return prepared.Unreadable();
    if (!prepared.IsRegular() || foldsAskAndBid_) {
        tails_.StoreAll(analysis_.series);
        return AnalyseTicker({quoteFolder_, clock_, lastDay_}, ticker, interval_, analysis_);
    }
    const std::size_t newest = prepared.History().BarCount();
    tails_.Overwrite(newest);
    prepared.StoreSeries(analysis_.series);
    prepared.StoreIndicators(analysis_);
    tails_.EmptyOpen(newest + 1, analysis_.series);
    if (newest > prepared.BarCount()) {
        const std::size_t first = prepared.BarCount() + 1;
        tails_.Add(prepared.ExchangeHistory(tails_.SpareHistory()), first, newest);
    }
    if (tails_.AreMany()) tails_.StoreAll(analysis_.series);
    return {};
}

}  // namespace brantlow
