#include "chart/chart_session.h"

namespace brantlow {

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
