#include "batch/commands.h"
#include "batch/ticker_lines.h"
#include "selector/catalogue.h"
#include "selector/evaluation.h"

namespace brantlow {

namespace {

void PrintNames(const Analysis& analysis, JsonLine& line) {
    line.Key("names");
    line.BeginObject();
    for (const std::string_view name : ConditionNames()) {
        if (!HasBarsToEvaluate(analysis.series)) break;
        line.Key(name);
        line.Text(Word(EvaluateName(name, analysis)));
    }
    line.EndObject();
}

void PrintConditions(const ConditionResults& results, std::size_t blocks, JsonLine& line) {
    line.Key("conditions");
    line.BeginArray();
    for (std::size_t i = 1; i <= blocks; ++i) {
        line.BeginObject();
        line.Key("action");
        line.Text(results.ConditionAction[i]);
        line.Key("result");
        line.Text(results.ConditionResult[i]);
        line.EndObject();
    }
    line.EndArray();
}

}  // namespace

ExitStatus RunEvaluate(BatchCall& call) {
    const Interval interval = ChosenInterval(call.arguments);
    const HistorySource source = SourceOf(call);
    ConditionResults results;
    return ForEachTicker(call, [&](const std::string& ticker, Analysis& analysis, JsonLine& line) {
        if (Failure failure = AnalyseTicker(source, ticker, interval, analysis)) return failure;
        const bool evaluated = HasBarsToEvaluate(analysis.series);
        if (evaluated) EvaluateConditions(call.session.settings, analysis, results);
        BeginTicker(line, ticker, interval, analysis.series);
        PrintNames(analysis, line);
        PrintConditions(results, evaluated ? results.blocks : 0, line);
        line.EndObject();
        return Failure{};
    });
}

}  // namespace brantlow
