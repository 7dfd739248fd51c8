#include "batch/table_back_test.h"

#include "batch/json_line.h"
#include "batch/left_out.h"
#include "batch/table_calls.h"
#include "study/table_replay.h"

namespace brantlow {

namespace {

void PrintTrade(const TableTrade& trade, JsonLine& line) {
    line.BeginObject();
    line.Key("ticker");
    line.Text(trade.ticker);
    line.Key("action");
    line.Text(trade.trade.action);
    line.Key("date");
    if (trade.date) {
        line.Text(FormatIsoDate(*trade.date));
    } else {
        line.Null();
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
    const TableReplay replay = ReplayTable(call.session, table.Tickers(), interval,
                                           [&call](std::size_t, std::size_t) { return !call.interrupted(); });
    call.out << ReplayLine(name, interval, replay) << '\n';
    if (replay.stopped)
        call.err << "Stopped after " << replay.tickers << " tickers: the sums are of these alone\n";
    const ExitStatus status = TellLeftOut(call, replay.leftOut, replay.asked, "tickers");
    return replay.stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
