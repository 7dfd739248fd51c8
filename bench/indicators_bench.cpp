// The parts of loading a ticker one by one: reading a record, a year's lines, the loader, the foldings and
// the indicator pass.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "base/files.h"
#include "indicators/analysis.h"
#include "indicators/history_row.h"
#include "indicators/indicator_pass.h"
#include "indicators/line_scan.h"
#include "indicators/prepared_ticker.h"
#include "indicators/year_plan.h"
#include "store/history_record.h"
#include "store/year_files.h"

namespace {

using namespace brantlow;

constexpr std::size_t kRowsAYear = 260;
constexpr Date kToday = std::chrono::year(2026) / 12 / 31;

std::string YearText() {
    std::string text;
    for (std::size_t i = 0; i < kRowsAYear; ++i) {
        const auto x = static_cast<double>(i);
        HistoryRecord record;
        record.HistoryDate = "01/02/26";
        record.HistoryTime = "16:00";
        record.HistoryClose = 100 + x / 8 + static_cast<double>(i * 7919 % 1000) / 250;
        record.HistoryLow = record.HistoryClose - 1.25;
        record.HistoryHigh = record.HistoryClose + 1.125;
        record.HistoryOpen = record.HistoryClose - 0.5;
        record.HistoryVolume = 1234567 + 1000 * x;
        record.HistoryPE = 21.5;
        record.HistoryEPS = 4.25;
        record.HistoryEPSest = 4.5;
        record.HistoryPS = 3.875;
        record.HistoryMarketCap = record.HistoryClose * 1234.56789;
        record.HistoryPreviousClose = record.HistoryClose - 0.125;
        record.History52WeekLow = 90;
        record.History52WeekHigh = 200;
        AppendHistoryLine(record, text);
    }
    return text;
}

// One ticker with twenty-one years of history in a folder of its own.
class Database {
  public:
    Database() {
        std::string name = (std::filesystem::temp_directory_path() / "brantlow-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) std::abort();
        quoteFolder_ = name + "/";
        const std::string text = YearText();
        for (const std::string& year : YearTexts(kToday, kFullYears)) {
            if (WriteWholeFile(*YearFilePath(quoteFolder_, "AB", year), text, Flush::Later)) std::abort();
        }
    }
    ~Database() { std::filesystem::remove_all(quoteFolder_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::string& QuoteFolder() const { return quoteFolder_; }
    HistorySource Source() const { return {quoteFolder_, clock_}; }

  private:
    std::string quoteFolder_;
    FixedClock clock_{kToday};
};

void ReadRecord(benchmark::State& state) {
    const std::string text = YearText();
    const std::string_view line = std::string_view(text).substr(0, text.find('\r'));
    HistoryRow row;
    for (auto _ : state) {
        ParseHistoryRow(line, row);
        benchmark::DoNotOptimize(row);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(line.size()));
}
BENCHMARK(ReadRecord);

void ScanYear(benchmark::State& state) {
    const std::string text = YearText();
    std::vector<LineSpan> lines;
    for (auto _ : state) {
        lines.clear();
        benchmark::DoNotOptimize(ScanLines(text.data(), 0, text.size(), lines));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ScanYear);

void LoadIntoSeries(benchmark::State& state, Interval interval) {
    const Database database;
    const auto analysis = std::make_unique<Analysis>();
    for (auto _ : state) LoadSeriesFor(database.Source(), "AB", interval, analysis->series);
}
BENCHMARK_CAPTURE(LoadIntoSeries, daily, Interval::Daily)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(LoadIntoSeries, weekly, Interval::Weekly)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(LoadIntoSeries, monthly, Interval::Monthly)->Unit(benchmark::kMicrosecond);

void PrepareAhead(benchmark::State& state, Interval interval) {
    const Database database;
    const std::vector<std::string> years = YearTexts(kToday, YearsFor(interval));
    PreparedTicker ticker;
    for (auto _ : state) ticker.Prepare(database.QuoteFolder(), years, interval, "AB");
}
BENCHMARK_CAPTURE(PrepareAhead, daily, Interval::Daily)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PrepareAhead, weekly, Interval::Weekly)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PrepareAhead, monthly, Interval::Monthly)->Unit(benchmark::kMicrosecond);

void MergeIntoAnalysis(benchmark::State& state) {
    const Database database;
    const std::vector<std::string> years = YearTexts(kToday, kRecentYears);
    PreparedTicker ticker;
    ticker.Prepare(database.QuoteFolder(), years, Interval::Daily, "AB");
    const auto analysis = std::make_unique<Analysis>();
    for (auto _ : state) {
        ticker.StoreSeries(analysis->series);
        ticker.StoreIndicators(*analysis);
    }
}
BENCHMARK(MergeIntoAnalysis)->Unit(benchmark::kMicrosecond);

void IndicatorPass(benchmark::State& state) {
    const Database database;
    const auto analysis = std::make_unique<Analysis>();
    LoadRecentSeries(database.Source(), "AB", analysis->series);
    WindowSeries(static_cast<double>(state.range(0)), analysis->series);
    IndicatorBlock block;
    for (auto _ : state) ComputeBlock(ViewOf(analysis->series), nullptr, block);
}
BENCHMARK(IndicatorPass)->Arg(100)->Arg(279)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
