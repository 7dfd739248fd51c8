#include "chart/chart_session.h"

namespace brantlow {

void KeepBarsAsRead(const WorkingSeries& series, ChartSession& chart) {
    chart.AsRead.assign(1, {});
    for (std::size_t i = 1; i <= series.BarCount; ++i) {
        chart.AsRead.push_back(
            {series.OpenPrice[i], series.HighPrice[i], series.LowPrice[i], series.Volume[i]});
    }
}

ValueAxis AxisOf(const ChartSession& chart, Panel panel) {
    const double topY = FormOf(panel).topY;
    switch (panel) {
        case Panel::Price:
            return {topY, chart.PriceTop, chart.PriceScale};
        case Panel::Study:
            return {topY, chart.StudyTop, chart.StudyScale};
        case Panel::Volume:
            break;
    }
    return {topY, chart.VolumeTop, chart.VolumeScale};
}

}  // namespace brantlow
