#include "batch/study_lines.h"

#include "batch/json_line.h"

namespace brantlow {

namespace {

void PrintCount(std::string_view name, std::size_t count, JsonLine& line) {
    line.Key(name);
    line.Number(static_cast<double>(count));
}

void PrintFigure(std::string_view name, const std::optional<double>& value, JsonLine& line) {
    line.Key(name);
    if (value) {
        line.Number(*value);
    } else {
        line.Null();
    }
}

void PrintBaseline(const StudyFigures& figures, const StudyTerms& terms, JsonLine& line) {
    line.Key("baseline");
    line.BeginObject();
    for (std::size_t i = 0; i < terms.horizons.size(); ++i) {
        const Mean& mean = figures.baseline[i];
        line.Key(std::to_string(terms.horizons[i]));
        line.BeginObject();
        PrintCount("n", mean.n, line);
        PrintFigure("mean", mean.n == 0 ? std::nullopt : std::optional(mean.mean), line);
        line.EndObject();
    }
    line.EndObject();
}

void PrintHorizon(const HorizonFigures& figures, JsonLine& line) {
    line.BeginObject();
    PrintCount("n", figures.n, line);
    PrintCount("open", figures.open, line);
    PrintFigure("mean", figures.mean, line);
    PrintFigure("median", figures.median, line);
    PrintFigure("hit", figures.hit, line);
    PrintFigure("excess", figures.excess, line);
    PrintFigure("se", figures.se, line);
    PrintFigure("t", figures.t, line);
    PrintFigure("first_half", figures.firstHalf, line);
    PrintFigure("second_half", figures.secondHalf, line);
    line.EndObject();
}

void PrintCondition(const ConditionStudy& study, const ConditionFigures& figures, const StudyTerms& terms,
                    JsonLine& line) {
    line.BeginObject();
    PrintCount("condition", figures.condition, line);
    line.Key("action");
    line.Text(study.actions[figures.condition - 1]);
    PrintCount("holding", figures.holding, line);
    PrintCount("signals", figures.signals, line);
    PrintCount("tickers", figures.tickers, line);
    PrintCount("days", figures.days, line);
    line.Key("horizons");
    line.BeginObject();
    for (std::size_t i = 0; i < terms.horizons.size(); ++i) {
        line.Key(std::to_string(terms.horizons[i]));
        PrintHorizon(figures.horizons[i], line);
    }
    line.EndObject();
    line.EndObject();
}

void PrintDates(const ConditionStudy& study, const std::vector<std::uint32_t>& dates, JsonLine& line) {
    line.Key("dates");
    line.BeginArray();
    for (const std::uint32_t date : dates) line.Text(FormatIsoDate(study.DateOf(date)));
    line.EndArray();
}

void PrintValues(std::string_view name, const std::vector<double>& values, JsonLine& line) {
    line.Key(name);
    line.BeginArray();
    for (const double value : values) line.Number(value);
    line.EndArray();
}

void PrintTrade(const ConditionStudy& study, const PortfolioTrade& trade, JsonLine& line) {
    line.BeginObject();
    line.Key("ticker");
    line.Text(study.tickers[trade.ticker].ticker);
    line.Key("entry");
    line.Text(FormatIsoDate(study.DateOf(trade.entry)));
    line.Key("entry_close");
    line.Number(trade.entryClose);
    line.Key("exit");
    line.Text(FormatIsoDate(study.DateOf(trade.exit)));
    line.Key("exit_close");
    line.Number(trade.exitClose);
    line.Key("return");
    line.Number(trade.result);
    line.EndObject();
}

void PrintSpan(const std::string& file, const ConditionStudy& study, JsonLine& line) {
    line.Key("file");
    line.Text(file);
    line.Key("interval");
    line.Text(IntervalArgument(study.span.interval));
    line.Key("from");
    line.Text(FormatIsoDate(study.span.from));
    line.Key("to");
    line.Text(FormatIsoDate(study.span.to));
}

}  // namespace

std::string StudyLine(const std::string& file, const ConditionStudy& study, const StudyTerms& terms) {
    const StudyFigures figures = FiguresOf(study, terms);
    JsonLine line;
    line.BeginObject();
    PrintSpan(file, study, line);
    PrintCount("tickers", study.asked, line);
    PrintCount("evaluated", study.Evaluated(), line);
    line.Key("cost");
    line.Number(terms.cost);
    PrintBaseline(figures, terms, line);
    line.Key("conditions");
    line.BeginArray();
    for (const ConditionFigures& condition : figures.conditions)
        PrintCondition(study, condition, terms, line);
    line.EndArray();
    line.EndObject();
    return line.Line();
}

std::string PortfolioLine(const std::string& file, const ConditionStudy& study, const PortfolioTerms& terms) {
    const Portfolio portfolio = PortfolioOf(study, terms);
    JsonLine line;
    line.BeginObject();
    PrintSpan(file, study, line);
    PrintCount("buy", terms.buy, line);
    PrintFigure("sell", terms.sell == 0 ? std::nullopt : std::optional(static_cast<double>(terms.sell)),
                line);
    PrintCount("hold", terms.hold, line);
    PrintCount("most", terms.most, line);
    line.Key("cost");
    line.Number(terms.cost);
    PrintDates(study, portfolio.dates, line);
    PrintValues("equity", portfolio.equity, line);
    PrintValues("benchmark", portfolio.benchmark, line);
    line.Key("trades");
    line.BeginArray();
    for (const PortfolioTrade& trade : portfolio.trades) PrintTrade(study, trade, line);
    line.EndArray();
    PrintCount("held", portfolio.held, line);
    PrintFigure("yearly", portfolio.yearly, line);
    PrintFigure("benchmark_yearly", portfolio.benchmarkYearly, line);
    PrintFigure("worst_fall", portfolio.worstFall, line);
    PrintFigure("benchmark_worst_fall", portfolio.benchmarkWorstFall, line);
    PrintFigure("in_market", portfolio.inMarket, line);
    line.EndObject();
    return line.Line();
}

}  // namespace brantlow
