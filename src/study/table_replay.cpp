#include "study/table_replay.h"

#include <memory>
#include <unordered_set>

#include "chart/chart_actions.h"
#include "indicators/record_days.h"

namespace brantlow {

namespace {

void TakeTicker(const std::string& ticker, const WorkingSeries& series, const BackTest& test,
                TableReplay& replay) {
    ++replay.tickers;
    for (const BackTestNumber& number : kBackTestNumbers) replay.sums.*number.value += test.*number.value;
    if (!test.trades.empty()) ++replay.traded;
    if (test.Profit > 0) ++replay.gained;
    if (test.Profit < 0) ++replay.lost;
    for (const BackTestTrade& trade : test.trades) {
        const std::size_t bar = trade.signalBar + 1;
        const auto day = bar <= series.BarCount ? DayOfField(series.QuoteDate[bar]) : std::nullopt;
        replay.trades.push_back({ticker, day, trade});
    }
}

}  // namespace

TableReplay ReplayTable(Session& session, const std::vector<std::string>& tickers, Interval interval,
                        const ReplayGoesOn& goesOn) {
    const auto analysis = std::make_unique<Analysis>();
    ChartSession chart;
    chart.ChartTimeFrame = TimeFrameOf(interval);
    ChartContext context{session, *analysis, chart};
    TableReplay replay;
    replay.asked = std::unordered_set<std::string>(tickers.begin(), tickers.end()).size();
    std::unordered_set<std::string> seen;
    for (const std::string& ticker : tickers) {
        replay.stopped = !goesOn(seen.size(), replay.asked);
        if (replay.stopped) break;
        if (!seen.insert(ticker).second) continue;
        chart.SelectorTicker = ticker;
        if (Failure failure = ReloadChart(context, Signals::Compute)) {
            replay.leftOut.push_back(std::move(failure));
            continue;
        }
        TakeTicker(ticker, analysis->series, RunBackTest(analysis->series, chart), replay);
    }
    return replay;
}

}  // namespace brantlow
