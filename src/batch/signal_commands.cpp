// The commands that ask the chart's two conditions about every bar: signals and backtest.
#include "batch/commands.h"
#include "batch/table_back_test.h"
#include "batch/ticker_lines.h"
#include "chart/back_test.h"
#include "chart/chart_actions.h"
#include "chart/signals.h"
#include "store/file_names.h"
#include "study/table_replay.h"

namespace brantlow {

namespace {

// Loads each ticker as its chart does, and prints its line: ticker, interval, BarCount and what
// `print(analysis, chart, line)` adds.
template <typename Print>
ExitStatus ForEachChart(BatchCall& call, Print print) {
    const Interval interval = ChosenInterval(call.arguments);
    ChartSession chart;
    chart.ChartTimeFrame = TimeFrameOf(interval);
    return ForEachTicker(call, [&](const std::string& ticker, Analysis& analysis, JsonLine& line) {
        ChartContext context{call.session, analysis, chart};
        chart.SelectorTicker = ticker;
        if (Failure failure = ReloadChart(context, Signals::Compute)) return failure;
        BeginTicker(line, ticker, interval, analysis.series);
        print(analysis, chart, line);
        line.EndObject();
        return Failure{};
    });
}

void PrintSignal(std::string_view name, const TextSeries& signal, std::size_t bars, JsonLine& line) {
    line.Key(name);
    line.BeginArray();
    for (std::size_t bar = 1; bar <= bars; ++bar) line.Text(signal[bar]);
    line.EndArray();
}

void PrintBackTest(const BackTest& test, const SettingsTables& settings, JsonLine& line) {
    for (const BackTestNumber& number : kBackTestNumbers) {
        line.Key(number.name);
        line.Number(test.*number.value);
    }
    line.Key("labels");
    line.BeginObject();
    for (const BackTestLabel& label : BackTestLabels(test, settings)) {
        line.Key(label.control);
        line.Text(label.text);
    }
    line.EndObject();
}

}  // namespace

ExitStatus RunSignals(BatchCall& call) {
    const SettingsTables& settings = call.session.settings;
    return ForEachChart(call, [&](const Analysis& analysis, const ChartSession& chart, JsonLine& line) {
        const std::size_t bars = analysis.series.BarCount;
        PrintSignal("BuySignal", chart.BuySignal, HasCondition(settings, kBuySide) ? bars : 0, line);
        PrintSignal("SellSignal", chart.SellSignal, HasCondition(settings, kSellSide) ? bars : 0, line);
    });
}

ExitStatus RunBackTestCommand(BatchCall& call) {
    const SettingsTables& settings = call.session.settings;
    if (const auto refusal = RefuseBackTest(settings)) return Refuse(call, *refusal);
    const std::vector<std::string>& operands = call.arguments.operands;
    const bool isTable = operands.size() == 1 && KindOf(operands.front()) == FileKind::Ddq;
    if (isTable) return BackTestTable(call, operands.front());
    return ForEachChart(call, [&](const Analysis& analysis, const ChartSession& chart, JsonLine& line) {
        PrintBackTest(RunBackTest(analysis.series, chart), settings, line);
    });
}

}  // namespace brantlow
