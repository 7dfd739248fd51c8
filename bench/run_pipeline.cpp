// The working half of a selector run alone: loads and computes every ticker of a list and prints how many had
// bars to evaluate. What `brantlow-batch select` takes beyond it is the evaluation and the table.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "indicators/series_pipeline.h"

namespace {

using namespace brantlow;

std::vector<std::string> TickersOf(const std::string& table) {
    std::vector<std::string> tickers;
    LineReader lines(table);
    std::string_view line;
    lines.Next(line);
    while (lines.Next(line)) tickers.emplace_back(line.substr(0, line.find('\t')));
    return tickers;
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder;
    std::string today = "2026-12-31";
    Interval interval = Interval::Daily;
    bool oneAfterAnother = false;
    const std::map<std::string, Interval> kIntervals = {
        {"daily", Interval::Daily}, {"weekly", Interval::Weekly}, {"monthly", Interval::Monthly}};
    CLI::App app("Loads and computes every ticker of a benchmark database");
    app.add_option("folder", folder, "Application folder made by make_database")->required();
    app.add_option("--today", today, "Day of the run, YYYY-MM-DD")->capture_default_str();
    app.add_option("--interval", interval, "daily, weekly or monthly")
        ->transform(CLI::CheckedTransformer(kIntervals));
    app.add_flag("--sequential", oneAfterAnother, "Without threads and without preparing ahead");
    CLI11_PARSE(app, argc, argv);
    const std::optional<Date> day = ParseDate(today);
    if (!day) {
        fmt::print(stderr, "--today: {} is no date\n", today);
        return 2;
    }
    const FixedClock clock(*day);
    const std::string quoteFolder = folder + "/Quotes/EOD/";
    const HistorySource source{quoteFolder, clock};
    const std::vector<std::string> tickers = TickersOf(BytesOrEmpty(Path(folder) / "Data" / "Bench.ddq"));
    const auto analysis = std::make_unique<Analysis>();
    std::size_t evaluated = 0;
    double sum = 0;
    const auto count = [&] {
        if (!HasBarsToEvaluate(analysis->series)) return;
        ++evaluated;
        sum += analysis->indicators.MLR15[analysis->series.BarCount];
    };
    if (oneAfterAnother) {
        for (const std::string& ticker : tickers) {
            AnalyseTicker(source, ticker, interval, *analysis);
            count();
        }
    } else {
        SeriesPipeline pipeline(source, interval, tickers, *analysis);
        while (pipeline.Next()) count();
    }
    fmt::print("{} of {} tickers have bars to evaluate; sum of MLR15 {}\n", evaluated, tickers.size(), sum);
    return 0;
}
