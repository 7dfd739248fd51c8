// The chart without its window: the three panels painted anew, and a chart opened from the year files.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "chart/chart_actions.h"
#include "chart/chart_picture.h"
#include "chart/chart_svg.h"
#include "chart_sample.h"

namespace {

using namespace brantlow;

// A chart of one ticker, in an application folder of its own, with seven series that draw on every bar.
class Desk {
  public:
    Desk() {
        session.settings.QuoteFolder = (folder_ / "Quotes/EOD").string() + "/";
        Open();
        if (analysis->series.BarCount != 279) std::abort();
    }
    ~Desk() { std::filesystem::remove_all(folder_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void Open() { StartChart(context, {"AB"}, ""); }

  private:
    Path folder_ = NewChartFolder();
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
