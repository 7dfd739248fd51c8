#include "study/portfolio.h"

#include <algorithm>
#include <cmath>

namespace brantlow {

namespace {

constexpr double kDaysOfYear = 365.25;

// One bar of one ticker, under the date on which it stands.
struct BarOfDate {
    std::uint32_t ticker;
    std::uint32_t bar;
};

struct Holding {
    std::uint32_t ticker;
    std::uint32_t entryBar;
    std::uint32_t entryDate;
    double shares;
    double paid;
};

// The bars of every date, tickers in the order of their names.
std::vector<std::vector<BarOfDate>> BarsByDate(const ConditionStudy& study) {
    std::vector<std::uint32_t> order(study.tickers.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return study.tickers[a].ticker < study.tickers[b].ticker;
    });
    std::vector<std::vector<BarOfDate>> bars(study.dates.size());
    for (const std::uint32_t t : order) {
        const StudiedTicker& ticker = study.tickers[t];
        for (std::uint32_t bar = 0; bar < ticker.dates.size(); ++bar)
            bars[ticker.dates[bar]].push_back({t, bar});
    }
    return bars;
}

double WorstFall(const std::vector<double>& values) {
    double highest = 0;
    double worst = 0;
    for (const double value : values) {
        highest = std::max(highest, value);
        if (highest > 0) worst = std::max(worst, 1 - value / highest);
    }
    return worst;
}

class PortfolioReplay {
  public:
    PortfolioReplay(const ConditionStudy& study, const PortfolioTerms& terms)
        : study_(study), terms_(terms), bars_(BarsByDate(study)), closes_(study.tickers.size(), 0) {}

    Portfolio Run() {
        double inMarket = 0;
        for (std::uint32_t date = FirstDate(); date < study_.dates.size(); ++date) {
            TakeCloses(date);
            SellWhatEnds(date);
            BuySignals(date);
            if (result_.dates.empty()) ShareAmongAll();
            const double holdings = Holdings();
            const double worth = cash_ + holdings;
            result_.dates.push_back(date);
            result_.equity.push_back(worth);
            result_.benchmark.push_back(Benchmark());
            inMarket += worth > 0 ? holdings / worth : 0;
        }
        Measure(inMarket);
        return std::move(result_);
    }

  private:
    std::uint32_t FirstDate() const {
        auto first = static_cast<std::uint32_t>(study_.dates.size());
        for (const StudiedTicker& ticker : study_.tickers)
            for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar)
                if (ticker.IsEvaluated(bar)) first = std::min(first, ticker.dates[bar]);
        return first;
    }

    void TakeCloses(std::uint32_t date) {
        for (const BarOfDate& at : bars_[date]) {
            const double close = study_.tickers[at.ticker].closes[at.bar];
            if (close > 0) closes_[at.ticker] = close;
        }
    }

    bool Ends(const Holding& holding, std::uint32_t bar) const {
        if (bar >= holding.entryBar + terms_.hold) return true;
        const StudiedTicker& ticker = study_.tickers[holding.ticker];
        return terms_.sell != 0 && bar > holding.entryBar && ticker.Begins(terms_.sell, bar - 1);
    }

    void SellWhatEnds(std::uint32_t date) {
        for (const BarOfDate& at : bars_[date]) {
            const auto held = std::find_if(holdings_.begin(), holdings_.end(),
                                           [&](const Holding& one) { return one.ticker == at.ticker; });
            if (held == holdings_.end() || !Ends(*held, at.bar)) continue;
            const double close = study_.tickers[at.ticker].closes[at.bar];
            if (!(close > 0)) continue;
            const double received = held->shares * close * (1 - terms_.cost / kPercent);
            cash_ += received;
            result_.trades.push_back({at.ticker, held->entryDate, date,
                                      study_.tickers[at.ticker].closes[held->entryBar], close,
                                      received / held->paid - 1});
            holdings_.erase(held);
        }
    }

    void BuySignals(std::uint32_t date) {
        const double worth = cash_ + Holdings();
        for (const BarOfDate& at : bars_[date]) {
            if (holdings_.size() >= terms_.most) return;
            const StudiedTicker& ticker = study_.tickers[at.ticker];
            const bool signalled = at.bar > 0 && ticker.Begins(terms_.buy, at.bar - 1);
            const bool held = std::any_of(holdings_.begin(), holdings_.end(),
                                          [&](const Holding& one) { return one.ticker == at.ticker; });
            const double close = ticker.closes[at.bar];
            if (!signalled || held || !(close > 0)) continue;
            const double paid = std::min(cash_, worth / static_cast<double>(terms_.most));
            if (!(paid > 0)) return;
            cash_ -= paid;
            holdings_.push_back(
                {at.ticker, at.bar, date, paid / (close * (1 + terms_.cost / kPercent)), paid});
        }
    }

    double Holdings() const {
        double worth = 0;
        for (const Holding& one : holdings_) worth += one.shares * closes_[one.ticker];
        return worth;
    }

    void ShareAmongAll() {
        const auto count = std::count_if(closes_.begin(), closes_.end(), [](double c) { return c > 0; });
        for (std::uint32_t t = 0; t < closes_.size(); ++t)
            if (closes_[t] > 0)
                all_.push_back({t, 0, 0,
                                1 / (static_cast<double>(count) * closes_[t] * (1 + terms_.cost / kPercent)),
                                0});
    }

    double Benchmark() const {
        if (all_.empty()) return 1;
        double worth = 0;
        for (const Holding& one : all_) worth += one.shares * closes_[one.ticker];
        return worth;
    }

    std::optional<double> Yearly(const std::vector<double>& values) const {
        if (values.size() < 2 || !(values.back() > 0)) return std::nullopt;
        const std::int32_t days =
            study_.dates[result_.dates.back()].day - study_.dates[result_.dates.front()].day;
        if (days <= 0) return std::nullopt;
        return std::pow(values.back(), kDaysOfYear / days) - 1;
    }

    void Measure(double inMarket) {
        result_.held = holdings_.size();
        result_.yearly = Yearly(result_.equity);
        result_.benchmarkYearly = Yearly(result_.benchmark);
        result_.worstFall = WorstFall(result_.equity);
        result_.benchmarkWorstFall = WorstFall(result_.benchmark);
        if (!result_.dates.empty()) result_.inMarket = inMarket / static_cast<double>(result_.dates.size());
    }

    const ConditionStudy& study_;
    const PortfolioTerms terms_;
    const std::vector<std::vector<BarOfDate>> bars_;
    std::vector<double> closes_;  // the last one above 0 of each ticker
    std::vector<Holding> holdings_;
    std::vector<Holding> all_;
    double cash_ = 1;
    Portfolio result_;
};

}  // namespace

Portfolio PortfolioOf(const ConditionStudy& study, const PortfolioTerms& terms) {
    return PortfolioReplay(study, terms).Run();
}

}  // namespace brantlow
