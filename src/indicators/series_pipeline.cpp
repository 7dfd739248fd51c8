#include "indicators/series_pipeline.h"

#include <algorithm>

#include "indicators/year_plan.h"

namespace brantlow {

namespace {

// A short list is done before threads have started.
constexpr std::size_t kShortList = 16;
constexpr std::size_t kMostThreads = 8;
// Places a thread: enough that no thread waits for a slow ticker, few enough to stay in the caches.
constexpr std::size_t kPlacesPerThread = 4;

std::size_t HelpersFor(std::size_t wished, std::size_t tickers) {
    if (wished != SeriesPipeline::kThreadsOfMachine) return wished;
    if (tickers < kShortList) return 0;
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    return std::min(processors, kMostThreads) - 1;
}

bool HoldsAnything(const NumberSeries& series) {
    for (std::size_t i = 0; i <= kMostRows; ++i) {
        if (series.State(i) != ElementState::NeverWritten) return true;
    }
    return false;
}

}  // namespace

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
                             !HoldsAnything(analysis.series.ClosePrice);
    if (readsNewest) replay_.emplace(HistorySource{quoteFolder_, clock_}, tickers_, years_);
    const std::size_t count = HelpersFor(helpers, tickers_.size());
    ring_ = std::vector<Place>((count + 1) * kPlacesPerThread);
    for (std::size_t i = 0; i < count; ++i) helpers_.emplace_back([this] { HelpAlong(); });
}

SeriesPipeline::~SeriesPipeline() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
    }
    room_.notify_all();
    for (std::thread& helper : helpers_) helper.join();
    Complete();
}

bool SeriesPipeline::IsWorkLeft() const {
    return claimed_ < std::min(tickers_.size(), next_ + ring_.size());
}

void SeriesPipeline::PrepareOne(std::unique_lock<std::mutex>& lock) {
    const std::size_t index = claimed_++;
    Place& place = PlaceOf(index);
    lock.unlock();
    if (replay_) {
        place.ticker.PrepareNewest(quoteFolder_, years_, tickers_[index]);
    } else {
        place.ticker.Prepare(quoteFolder_, years_, interval_, tickers_[index], lastDay_);
    }
    lock.lock();
    place.ready = true;
    ready_.notify_one();
}

void SeriesPipeline::HelpAlong() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        room_.wait(lock, [this] { return stopping_ || claimed_ == tickers_.size() || IsWorkLeft(); });
        if (stopping_ || claimed_ == tickers_.size()) return;
        PrepareOne(lock);
    }
}

// The caller's thread prepares tickers itself rather than wait for one.
void SeriesPipeline::WaitFor(std::size_t index) {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!PlaceOf(index).ready) {
        if (IsWorkLeft()) {
            PrepareOne(lock);
        } else {
            ready_.wait(lock);
        }
    }
}

bool SeriesPipeline::Next() {
    if (next_ == tickers_.size()) return false;
    WaitFor(next_);
    Place& place = PlaceOf(next_);
    unreadable_ = replay_ ? MergeNewest(tickers_[next_], place.ticker) : Merge(tickers_[next_], place.ticker);
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        place.ready = false;
        ++next_;
    }
    room_.notify_one();
    return true;
}

Failure SeriesPipeline::MergeNewest(std::string_view ticker, PreparedTicker& prepared) {
    if (prepared.Unreadable()) return prepared.Unreadable();
    if (!prepared.IsRegular()) {
        const std::size_t rows = prepared.History().BarCount();
        replay_->BringUp(next_, std::min(rows + 1, kMostRows), analysis_.series);
        Failure failure = AnalyseTicker({quoteFolder_, clock_}, ticker, interval_, analysis_);
        replay_->Loaded(next_);
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
