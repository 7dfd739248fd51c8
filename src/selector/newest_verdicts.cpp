#include "selector/newest_verdicts.h"

#include "indicators/year_plan.h"

namespace brantlow {

NewestVerdicts::NewestVerdicts(const HistorySource& source, std::vector<std::string> tickers,
                               const WindowConditions& conditions, std::size_t helpers)
    : quoteFolder_(source.QuoteFolder),
      clock_(source.clock.Today()),
      tickers_(std::move(tickers)),
      years_(YearTexts(clock_.Today(), kRecentYears)),
      conditions_(conditions),
      leftovers_({quoteFolder_, clock_}, tickers_, years_, conditions_, helpers) {
    ahead_.emplace(tickers_.size(), helpers,
                   [this](std::size_t place, Judged& judged) { Judge(place, judged); });
}

TickerVerdict NewestVerdicts::Next() {
    const std::size_t place = next_++;
    if (leftovers_.TakesAll()) {
        ahead_.reset();
        return leftovers_.Of(place, {});
    }
    Judged& judged = ahead_->Await();
    TickerVerdict verdict =
        judged.isSettled ? std::move(judged.verdict) : leftovers_.Of(place, judged.needed);
    ahead_->Advance();
    return verdict;
}

void NewestVerdicts::Judge(std::size_t place, Judged& judged) {
    judged = {};
    std::unique_ptr<Bench> bench = TakeBench();
    judged.verdict.unreadable = bench->window.Load(quoteFolder_, tickers_[place], years_);
    if (!judged.verdict.unreadable) JudgeBars(*bench, judged);
    PutBack(std::move(bench));
}

void NewestVerdicts::JudgeBars(Bench& bench, Judged& judged) const {
    const NewestWindow& window = bench.window;
    if (!window.IsRegular()) {
        judged.isSettled = false;
        judged.needed.rows = window.RowCount();
        return;
    }
    TickerVerdict& verdict = judged.verdict;
    verdict.BarCount = window.BarCount();
    if (verdict.BarCount <= kTooFewBarsToEvaluate) return;
    bench.bars.Look(window.Columns(), verdict.BarCount);
    verdict.holds = conditions_.Judge(bench.bars);
    if (verdict.holds != 0) {
        const auto trend = [&](std::size_t bar) { return bench.bars.Computed(kShortTrendArray, bar); };
        verdict.trend = TrendOf(trend(verdict.BarCount), trend(verdict.BarCount - 1));
    }
    judged.isSettled = bench.bars.Leftovers() == LookedAtLeftovers::None;
    judged.needed.elementZero = bench.bars.Leftovers() == LookedAtLeftovers::ElementZero;
}

std::unique_ptr<NewestVerdicts::Bench> NewestVerdicts::TakeBench() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (!benches_.empty()) {
            std::unique_ptr<Bench> bench = std::move(benches_.back());
            benches_.pop_back();
            return bench;
        }
    }
    return std::make_unique<Bench>(conditions_.Fields());
}

void NewestVerdicts::PutBack(std::unique_ptr<Bench> bench) {
    const std::lock_guard<std::mutex> lock(mutex_);
    benches_.push_back(std::move(bench));
}

}  // namespace brantlow
