// The chart without its window: the three panels painted anew, and a chart opened from the year files.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "base/files.h"
#include "chart/chart_actions.h"
#include "chart/chart_picture.h"
#include "chart/chart_svg.h"
#include "indicators/year_plan.h"
#include "store/history_record.h"
#include "store/year_files.h"

namespace {

using namespace brantlow;

constexpr std::size_t kRowsAYear = 260;
constexpr Date kToday = std::chrono::year(2026) / 12 / 31;

class Silence final : public Person {
  public:
    void Say(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return false; }
    void ShowStatusWord(std::string_view) override {}
    void ShowTickerCount(std::size_t) override {}
    void ShowProgress(double) override {}
    void PumpEvents() override {}
    void Beep() override {}
};

std::string YearText(double phase) {
    std::string text;
    for (std::size_t i = 0; i < kRowsAYear; ++i) {
        const double x = static_cast<double>(i) / 10 + phase;
        HistoryRecord record;
        record.HistoryDate = "01/02/26";
        record.HistoryTime = "16:00";
        record.HistoryClose = 100 + 20 * std::sin(x) + 3 * std::sin(11 * x);
        record.HistoryLow = record.HistoryClose - 1.25;
        record.HistoryHigh = record.HistoryClose + 1.125;
        record.HistoryOpen = record.HistoryClose + std::cos(7 * x);
        record.HistoryVolume = 1e6 + 4e5 * std::sin(5 * x);
        AppendHistoryLine(record, text);
    }
    return text;
}

// A chart of one ticker, in an application folder of its own, with seven series that draw on every bar.
class Desk {
  public:
    Desk() {
        std::filesystem::create_directories(folder_ / "Data");
        std::filesystem::create_directories(folder_ / "Quotes/EOD");
        session.settings.QuoteFolder = (folder_ / "Quotes/EOD").string() + "/";
        double phase = 0;
        for (const std::string& year : YearTexts(kToday, kRecentYears)) {
            const auto path = *YearFilePath(session.settings.QuoteFolder, "AB", year);
            if (WriteWholeFile(path, YearText(phase += 1), Flush::Later)) std::abort();
        }
        const std::string settings =
            "\"CandleStick\"\r\n\"Price\"\r\n\"MA 15\"\r\n\"WMA 15\"\r\n\"MLR 15 L.CL\"\r\n\"MLR 15 "
            "T.CL\"\r\n"
            "\"MLR 30\"\r\n\"LR L.CL\"\r\n\"None\"\r\n\"None\"\r\n";
        if (WriteWholeFile(folder_ / "Data/VTRGRAPHset.ini", settings, Flush::Later)) std::abort();
        Open();
        if (analysis->series.BarCount != 279) std::abort();
    }
    ~Desk() { std::filesystem::remove_all(folder_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void Open() { StartChart(context, {"AB"}, ""); }

  private:
    static Path NewFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "brantlow-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) std::abort();
        return name;
    }

    Path folder_ = NewFolder();
    FixedClock clock_{kToday};
    Silence person_;

  public:
    Session session{folder_, clock_, person_};
    std::unique_ptr<Analysis> analysis = std::make_unique<Analysis>();
    ChartSession chart;
    ChartContext context{session, *analysis, chart};
};

void RepaintPanels(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) PaintAllPanels(desk.context);
    std::size_t items = 0;
    for (const PanelDrawing& picture : desk.chart.Pictures) items += picture.items.size();
    state.counters["items"] = static_cast<double>(items);
}
BENCHMARK(RepaintPanels)->Unit(benchmark::kMicrosecond);

void PaintOverPricePanel(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) PickPriceSeries(desk.context, "MA 30");
}
BENCHMARK(PaintOverPricePanel)->Unit(benchmark::kMicrosecond);

void OpenChart(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) desk.Open();
}
BENCHMARK(OpenChart)->Unit(benchmark::kMicrosecond);

void WriteSvg(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        benchmark::DoNotOptimize(SvgOf(LayOutPicture(desk.chart, desk.analysis->series)));
    }
}
BENCHMARK(WriteSvg)->Unit(benchmark::kMicrosecond);

}  // namespace
