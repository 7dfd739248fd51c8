#include "batch/ticker_lines.h"

namespace brantlow {

HistorySource SourceOf(const BatchCall& call) {
    return HistoryOf(call.session);
}

void BeginTicker(JsonLine& line, std::string_view ticker, Interval interval, const WorkingSeries& series) {
    line.BeginObject();
    line.Key("ticker");
    line.Text(ticker);
    line.Key("interval");
    line.Text(IntervalArgument(interval));
    line.Key("BarCount");
    line.Number(static_cast<double>(series.BarCount));
}

}  // namespace brantlow
