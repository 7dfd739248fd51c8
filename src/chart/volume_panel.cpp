#include <algorithm>
#include <optional>
#include <utility>

#include "base/numbers.h"
#include "chart/chart_panels.h"
#include "chart/panel_colours.h"
#include "chart/panel_paint.h"
#include "chart/series_tables.h"

namespace brantlow {

namespace {

// The bottom before any volume has been seen.
constexpr double kBeyondAnyVolume = 9e20;

// The scale from the volumes as they are; only then a volume of 0 becomes 1, so that it is 0 once at most.
void FindVolumeRange(Analysis& analysis, ChartSession& chart) {
    NumberSeries& volume = analysis.series.Volume;
    chart.VolumeTop = analysis.indicators.MaxVolume;
    chart.VolumeBottom = kBeyondAnyVolume;
    for (std::size_t i = 1; i <= analysis.series.BarCount; ++i) {
        chart.VolumeBottom = std::min(chart.VolumeBottom, volume[i]);
        if (volume[i] == 0) volume.Set(i, 1);
    }
}

void SetVolumeScale(Analysis& analysis, ChartSession& chart) {
    FindVolumeRange(analysis, chart);
    if (chart.VolumeTop == chart.VolumeBottom) {
        chart.VolumeTop = 1;
        chart.VolumeBottom = 0;
    }
    chart.VolumeScale = FormOf(Panel::Volume).Height() / (chart.VolumeTop - chart.VolumeBottom);
}

Rgb BarColour(double before, double close) {
    if (before < close) return kVolumeUp;
    return before > close ? kVolumeDown : kBlack;
}

// The first bar is compared with element 0, which is 0 unless the oldest year is missing.
void DrawVolume(const WorkingSeries& series, const PanelPen& pen) {
    for (std::size_t i = 1; i <= series.BarCount; ++i) {
        pen.UprightAtY(i, pen.Y(series.Volume[i]), FormOf(Panel::Volume).bottomY,
                       BarColour(series.ClosePrice[i - 1], series.ClosePrice[i]));
    }
}

void DrawRegression(const VolumeSeries& row, const Analysis& analysis, const PanelPen& pen) {
    const NumberSeries& line = analysis.indicators.LRVolume;
    const double offset = row.offset == nullptr ? 0 : analysis.indicators.*row.offset;
    const std::size_t newest = analysis.series.BarCount;
    if (newest > 0) pen.Segment({1, line[1] + offset}, {newest, line[newest] + offset}, row.colour);
}

void DrawSegments(const VolumeSeries& row, const Analysis& analysis, const PanelPen& pen) {
    const Indicators& indicators = analysis.indicators;
    for (std::size_t i = row.fromBar; i <= analysis.series.BarCount; ++i) {
        if (row.array == nullptr) {
            pen.LevelAt(i, indicators.*row.level, row.colour);
        } else {
            const NumberSeries& values = indicators.*row.array;
            pen.Segment({i - 1, values[i - 1]}, {i, values[i]}, row.colour);
        }
    }
}

void DrawNamed(std::string_view name, const Analysis& analysis, const PanelPen& pen) {
    if (name == kVolumeName) return DrawVolume(analysis.series, pen);
    const VolumeSeries* row = RowNamed(kVolumeSeries, name);
    if (row == nullptr) return;
    if (row->isRegression) return DrawRegression(*row, analysis, pen);
    DrawSegments(*row, analysis, pen);
}

}  // namespace

PanelDrawing PaintVolumePanel(ChartSession& chart, Analysis& analysis) {
    PanelDrawing drawing;
    ValueAxis axis;
    const PanelPen pen(drawing, axis);
    // Each entry draws the frame first, over the bars of the entries before it. One that repeats the entry
    // before it, at the same scale, would draw the same lines over themselves.
    std::optional<std::pair<std::string, double>> drawn;
    for (const std::string& entry : chart.VolumeSeriesList) {
        if (!entry.empty()) chart.Combo3 = entry;
        SetVolumeScale(analysis, chart);
        axis = AxisOf(chart, Panel::Volume);
        std::pair<std::string, double> next(chart.Combo3, chart.VolumeScale);
        if (next == drawn) continue;
        DrawFrame(Panel::Volume, pen);
        DrawNamed(chart.Combo3, analysis, pen);
        drawn = std::move(next);
    }
    drawing.labels = {{"Label56", FormatPicture(kVolumePicture, chart.VolumeTop), {}},
                      {"Label57", FormatPicture(kVolumePicture, chart.VolumeBottom), {}}};
    return drawing;
}

}  // namespace brantlow
