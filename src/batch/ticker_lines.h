// What the commands that print one JSON line a ticker share: series, indicators, evaluate.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/command.h"
#include "batch/json_line.h"
#include "batch/left_out.h"
#include "indicators/analysis.h"

namespace brantlow {

// Where the call's history lies.
HistorySource SourceOf(const BatchCall& call);

// Opens a ticker's object: ticker, interval, BarCount.
void BeginTicker(JsonLine& line, std::string_view ticker, Interval interval, const WorkingSeries& series);

// Prints one line for each ticker of the call, all loaded into one analysis. `print(ticker, analysis, line)`
// loads a ticker, writes its object and gives none; a failure leaves the ticker out, which is told at the
// end.
template <typename Print>
ExitStatus ForEachTicker(BatchCall& call, Print print) {
    Analysis analysis;
    std::vector<Failure> leftOut;
    for (const std::string& ticker : call.arguments.operands) {
        if (call.interrupted()) return ExitStatus::Interrupted;
        JsonLine line;
        if (Failure failure = print(ticker, analysis, line)) {
            leftOut.push_back(std::move(failure));
        } else {
            call.out << line.Line() << '\n';
        }
    }
    return TellLeftOut(call, leftOut, call.arguments.operands.size(), "tickers");
}

}  // namespace brantlow
