// The commands that print the arrays of one ticker's history: series and indicators.
#include "base/numbers.h"
#include "batch/array_names.h"
#include "batch/commands.h"
#include "batch/ticker_lines.h"

namespace brantlow {

namespace {

// Daily bars come from the recent years, weekly and monthly ones from all.
Failure LoadWindow(const HistorySource& source, const std::string& ticker, Interval interval, double window,
                   WorkingSeries& series) {
    Failure failure = interval == Interval::Daily ? LoadRecentSeries(source, ticker, series)
                                                  : LoadFullSeries(source, ticker, series);
    if (failure) return failure;
    if (interval == Interval::Weekly) MakeWeeklySeries(series);
    if (interval == Interval::Monthly) MakeMonthlySeries(series);
    WindowSeries(window, series);
    return {};
}

// Percent changes are printed as their consumers see them.
void PrintPercentChange(const Analysis& analysis, JsonLine& line) {
    line.BeginArray();
    for (std::size_t i = 1; i <= analysis.series.BarCount; ++i) {
        line.Element(analysis.indicators.PercentChange.State(i), PercentChangeAt(analysis.indicators, i));
    }
    line.EndArray();
}

void PrintIndicators(const Analysis& analysis, JsonLine& line) {
    line.Key("scalars");
    line.BeginObject();
    for (const IndicatorScalarName& row : kIndicatorScalarNames) {
        line.Key(row.name);
        line.Number(analysis.indicators.*row.value);
    }
    line.EndObject();
    line.Key("arrays");
    line.BeginObject();
    for (const NamedIndicator& row : kIndicatorArrays) {
        line.Key(row.name);
        if (row.array == &Indicators::PercentChange) {
            PrintPercentChange(analysis, line);
        } else {
            line.Elements(analysis.indicators.*row.array, analysis.series.BarCount);
        }
    }
    line.EndObject();
}

}  // namespace

std::optional<std::string> RefuseWindow(std::string_view text) {
    const std::optional<double> number = WholeNumber(text);
    const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    if (digits && number && *number <= static_cast<double>(kMostRows)) return std::nullopt;
    return "'" + std::string(text) + "' is no whole number from 0 to " + std::to_string(kMostRows);
}

ExitStatus RunSeries(BatchCall& call) {
    const Interval interval = ChosenInterval(call.arguments);
    const double window = LeadingNumber(call.arguments.Text("--window"));
    const HistorySource source = SourceOf(call);
    return ForEachTicker(call, [&](const std::string& ticker, Analysis& analysis, JsonLine& line) {
        const WorkingSeries& series = analysis.series;
        if (Failure failure = LoadWindow(source, ticker, interval, window, analysis.series)) return failure;
        BeginTicker(line, ticker, interval, series);
        line.Key("LastBar");
        line.Number(static_cast<double>(series.LastBar));
        line.Key("series");
        line.BeginObject();
        for (const SeriesName& row : kSeriesNames) {
            line.Key(row.name);
            if (row.numbers != nullptr) {
                line.Elements(series.*row.numbers, series.BarCount);
            } else {
                line.Elements(series.*row.texts, series.BarCount);
            }
        }
        line.EndObject();
        line.EndObject();
        return Failure{};
    });
}

ExitStatus RunIndicators(BatchCall& call) {
    const Interval interval = ChosenInterval(call.arguments);
    const HistorySource source = SourceOf(call);
    return ForEachTicker(call, [&](const std::string& ticker, Analysis& analysis, JsonLine& line) {
        if (Failure failure = LoadSeriesFor(source, ticker, interval, analysis.series)) return failure;
        ComputeIndicators(analysis.series, analysis.indicators);
        BeginTicker(line, ticker, interval, analysis.series);
        PrintIndicators(analysis, line);
        line.EndObject();
        return Failure{};
    });
}

}  // namespace brantlow
