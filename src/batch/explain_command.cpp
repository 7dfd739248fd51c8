#include "batch/commands.h"
#include "batch/ticker_lines.h"
#include "indicators/record_days.h"
#include "selector/explanation.h"

namespace brantlow {

namespace {

void PrintValues(const std::vector<LookedAt>& values, std::size_t newest, JsonLine& line) {
    line.Key("values");
    line.BeginArray();
    for (const LookedAt& value : values) {
        line.BeginObject();
        line.Key("name");
        line.Text(NameOf(value));
        line.Key("bar");
        line.Number(static_cast<double>(value.bar) - static_cast<double>(newest));
        line.Key("value");
        line.Element(value.state, value.value);
        line.EndObject();
    }
    line.EndArray();
}

void PrintLine(const LineExplanation& explained, std::size_t newest, JsonLine& line) {
    line.BeginObject();
    line.Key("text");
    line.Text(explained.text);
    line.Key("kind");
    line.Text(explained.isSlot ? "value" : "name");
    line.Key("state");
    line.Text(Word(explained.state));
    if (explained.reason != PassedOver::No) {
        line.Key("reason");
        line.Text(ReasonText(explained.reason));
    }
    PrintValues(explained.values, newest, line);
    if (explained.isSlot) {
        line.Key("x");
        line.Number(explained.x);
    }
    line.EndObject();
}

void PrintConditions(const std::vector<ConditionExplanation>& conditions, std::size_t newest,
                     JsonLine& line) {
    line.Key("conditions");
    line.BeginArray();
    for (std::size_t i = 0; i < conditions.size(); ++i) {
        line.BeginObject();
        line.Key("condition");
        line.Number(static_cast<double>(i + 1));
        line.Key("action");
        line.Text(conditions[i].action);
        line.Key("result");
        line.Text(Word(conditions[i].result));
        line.Key("lines");
        line.BeginArray();
        for (const LineExplanation& explained : conditions[i].lines) PrintLine(explained, newest, line);
        line.EndArray();
        line.EndObject();
    }
    line.EndArray();
}

// null where there is no bar, or none with a readable date.
void PrintNewestDay(const WorkingSeries& series, JsonLine& line) {
    line.Key("date");
    const auto day = series.BarCount == 0 ? std::nullopt : DayOfField(series.QuoteDate[series.BarCount]);
    if (day) {
        line.Text(FormatIsoDate(*day));
    } else {
        line.Null();
    }
}

}  // namespace

ExitStatus RunExplain(BatchCall& call) {
    const Interval interval = ChosenInterval(call.arguments);
    const HistorySource source = SourceOf(call);
    const CompiledConditions conditions(call.session.settings);
    return ForEachTicker(call, [&](const std::string& ticker, Analysis& analysis, JsonLine& line) {
        if (Failure failure = AnalyseTicker(source, ticker, interval, analysis)) return failure;
        std::vector<ConditionExplanation> explained;
        if (HasBarsToEvaluate(analysis.series)) explained = ExplainConditions(conditions, analysis);
        BeginTicker(line, ticker, interval, analysis.series);
        PrintNewestDay(analysis.series, line);
        PrintConditions(explained, analysis.series.LastBar, line);
        line.EndObject();
        return Failure{};
    });
}

}  // namespace brantlow
