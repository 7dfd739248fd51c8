#include "batch/table_back_test.h"

#include <memory>
#include <unordered_set>
#include <vector>

#include "batch/json_line.h"
#include "batch/left_out.h"
#include "batch/table_calls.h"
#include "chart/chart_actions.h"
#include "indicators/record_days.h"

namespace brantlow {

namespace {

struct TableTrade {
    std::string ticker;
    std::string date;  // ISO; empty after a signal on the newest bar
    BackTestTrade trade;
};

struct TableReplay {
    BackTest sums;
    std::size_t tickers = 0;
    std::size_t traded = 0;
    std::size_t gained = 0;
    std::size_t lost = 0;
    std::vector<TableTrade> trades;
};

std::string DateOfBar(const WorkingSeries& series, std::size_t bar) {
    const auto day = bar <= series.BarCount ? DayOfField(series.QuoteDate[bar]) : std::nullopt;
    return day ? FormatIsoDate(*day) : std::string();
}

void TakeTicker(const std::string& ticker, const WorkingSeries& series, const BackTest& test,
                TableReplay& replay) {
    ++replay.tickers;
    for (const BackTestNumber& number : kBackTestNumbers) replay.sums.*number.value += test.*number.value;
    if (!test.trades.empty()) ++replay.traded;
    if (test.Profit > 0) ++replay.gained;
    if (test.Profit < 0) ++replay.lost;
    for (const BackTestTrade& trade : test.trades)
        replay.trades.push_back({ticker, DateOfBar(series, trade.signalBar + 1), trade});
}

void PrintTrade(const TableTrade& trade, JsonLine& line) {
    line.BeginObject();
    line.Key("ticker");
    line.Text(trade.ticker);
    line.Key("action");
    line.Text(trade.trade.action);
    line.Key("date");
    if (trade.date.empty()) {
        line.Null();
    } else {
        line.Text(trade.date);
    }
    line.Key("price");
    line.Number(trade.trade.price);
    line.Key("amount");
    line.Number(trade.trade.amount);
    line.EndObject();
}

std::string ReplayLine(const std::string& name, Interval interval, const TableReplay& replay) {
    JsonLine line;
    line.BeginObject();
    line.Key("file");
    line.Text(name);
    line.Key("interval");
    line.Text(IntervalArgument(interval));
    const std::pair<std::string_view, std::size_t> counts[] = {{"tickers", replay.tickers},
                                                               {"traded", replay.traded},
                                                               {"gained", replay.gained},
                                                               {"lost", replay.lost}};
    for (const auto& [key, count] : counts) {
        line.Key(key);
        line.Number(static_cast<double>(count));
    }
    for (const BackTestNumber& number : kBackTestNumbers) {
        line.Key(number.name);
        line.Number(replay.sums.*number.value);
    }
    line.Key("trades");
    line.BeginArray();
    for (const TableTrade& trade : replay.trades) PrintTrade(trade, line);
    line.EndArray();
    line.EndObject();
    return line.Line();
}

}  // namespace

ExitStatus BackTestTable(BatchCall& call, const std::string& name) {
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    QuoteTable table;
    if (!LoadTable(call, name, table)) return ExitStatus::Refused;
    const Interval interval = ChosenInterval(call.arguments);
    const auto analysis = std::make_unique<Analysis>();
    ChartSession chart;
    chart.ChartTimeFrame = TimeFrameOf(interval);
    ChartContext context{call.session, *analysis, chart};
    TableReplay replay;
    std::vector<Failure> leftOut;
    std::unordered_set<std::string> seen;
    bool stopped = false;
    for (const std::string& ticker : table.Tickers()) {
        stopped = call.interrupted();
        if (stopped) break;
        if (!seen.insert(ticker).second) continue;
        chart.SelectorTicker = ticker;
        if (Failure failure = ReloadChart(context, Signals::Compute)) {
            leftOut.push_back(std::move(failure));
            continue;
        }
        TakeTicker(ticker, analysis->series, RunBackTest(analysis->series, chart), replay);
    }
    call.out << ReplayLine(name, interval, replay) << '\n';
    if (stopped) call.err << "Stopped after " << replay.tickers << " tickers: the sums are of these alone\n";
    const ExitStatus status = TellLeftOut(call, leftOut, seen.size(), "tickers");
    return stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
