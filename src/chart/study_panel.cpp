#include "base/numbers.h"
#include "chart/chart_panels.h"
#include "chart/panel_colours.h"
#include "chart/panel_paint.h"
#include "chart/series_tables.h"
#include "chart/study_values.h"

namespace brantlow {

namespace {

// Bounds before any value has been seen, and what the labels show where none is.
constexpr double kBeyondAnyStudy = 9e20;
constexpr double kHighestRsi = 100;
constexpr double kMidline = 0.5;
void FindStudyRange(const Study* study, const Analysis& analysis, ChartSession& chart) {
    chart.StudyTop = -kBeyondAnyStudy;
    chart.StudyBottom = kBeyondAnyStudy;
    if (study == nullptr) return;
    if (study->rangeFrom == kFixedRange) {
        chart.StudyTop = kHighestRsi;
        chart.StudyBottom = 0;
        return;
    }
    const StudyValues values(*study, analysis);
    for (std::size_t i = study->rangeFrom; i <= analysis.series.BarCount; ++i) {
        if (!values.IsWritten(i)) continue;
        if (values[i] > chart.StudyTop) chart.StudyTop = values[i];
        if (values[i] < chart.StudyBottom) chart.StudyBottom = values[i];
    }
}

void SetStudyScale(const Study* study, const Analysis& analysis, ChartSession& chart) {
    FindStudyRange(study, analysis, chart);
    if (chart.StudyTop == chart.StudyBottom) {
        chart.StudyTop = 1;
        chart.StudyBottom = 0;
    }
    chart.StudyScale = FormOf(Panel::Study).Height() / (chart.StudyTop - chart.StudyBottom);
}

struct StudyBar {
    const Study& study;
    const StudyValues& values;
    const PanelPen& pen;
};

// From 0 to the value.
void DrawBar(const StudyBar& bar, std::size_t i, Rgb colour) {
    bar.pen.Upright(i, 0, bar.values[i], colour);
}

bool Rises(const StudyBar& bar, std::size_t i) {
    return bar.values[i] > bar.values[i - 1];
}

// The colour tells the study's direction.
void DrawTrend(const StudyBar& bar, std::size_t i) {
    DrawBar(bar, i, Rises(bar, i) ? kStudyUp : kStudyDown);
}

void DrawSign(const StudyBar& bar, std::size_t i) {
    DrawBar(bar, i, bar.values[i] > 0 ? kStudyPositive : kStudyNegative);
}

// Coloured where direction and sign agree.
void DrawTwoTests(const StudyBar& bar, std::size_t i) {
    const double value = bar.values[i];
    const bool rises = Rises(bar, i);
    DrawBar(bar, i, kNearBlack);
    if (rises && value > 0) DrawBar(bar, i, kStudyUp);
    if (!rises && value <= 0) DrawBar(bar, i, kStudyDown);
}

void DrawMidline(const StudyBar& bar, std::size_t i) {
    const double value = bar.values[i];
    if (i >= bar.study.midlineFrom) bar.pen.LevelAt(i, kMidline, kBlack);
    if (i < bar.study.drawFrom) return;
    bar.pen.Upright(i, kMidline, value, value > kMidline ? kStudyUp : kStudyDown);
}

// The two levels, the study's line between them, and bars where it is beyond one.
void DrawBand(const StudyBar& bar, std::size_t i) {
    const double upper = bar.study.upperLevel;
    const double lower = bar.study.lowerLevel;
    const double value = bar.values[i];
    bar.pen.LevelAt(i, upper, kNearBlack);
    bar.pen.LevelAt(i, lower, kNearBlack);
    if (i < bar.study.drawFrom) return;
    bar.pen.Segment({i - 1, bar.values[i - 1]}, {i, value}, kNearBlack);
    if (value <= lower) bar.pen.Upright(i, lower, value, kStudyUp);
    if (value >= upper) bar.pen.Upright(i, upper, value, kStudyDown);
}

void DrawStudyAt(const StudyBar& bar, std::size_t i) {
    // These two draw something at every bar.
    if (bar.study.style == StudyStyle::Midline) return DrawMidline(bar, i);
    if (bar.study.style == StudyStyle::Band) return DrawBand(bar, i);
    if (i < bar.study.drawFrom) return;
    if (bar.study.style == StudyStyle::Trend) return DrawTrend(bar, i);
    if (bar.study.style == StudyStyle::Sign) return DrawSign(bar, i);
    if (bar.study.style == StudyStyle::TwoTests) return DrawTwoTests(bar, i);
    DrawBar(bar, i, kNearBlack);
}

void DrawStudy(const Study& study, const Analysis& analysis, const PanelPen& pen) {
    const StudyValues values(study, analysis);
    const StudyBar bar{study, values, pen};
    for (std::size_t i = 1; i <= analysis.series.BarCount; ++i) DrawStudyAt(bar, i);
}

void KeepReadOut(const Study& study, const Analysis& analysis, NumberSeries& readOut) {
    Study shown = study;
    if (study.readOut != nullptr) shown.computed = study.readOut;
    const StudyValues values(shown, analysis);
    for (std::size_t i = 1; i <= analysis.series.BarCount; ++i) {
        if (values.IsWritten(i)) {
            readOut.Set(i, values[i]);
        } else {
            readOut.Empty(i);
        }
    }
}

}  // namespace

PanelDrawing PaintStudyPanel(ChartSession& chart, const Analysis& analysis) {
    const Study* study = RowNamed(kStudies, chart.Combo2);
    SetStudyScale(study, analysis, chart);
    PanelDrawing drawing;
    const ValueAxis axis = AxisOf(chart, Panel::Study);
    const PanelPen pen(drawing, axis);
    DrawFrame(Panel::Study, pen);
    drawing.labels = {{"Label54", FormatPicture(kStudyPicture, chart.StudyTop), {}},
                      {"Label55", FormatPicture(kStudyPicture, chart.StudyBottom), {}}};
    if (study != nullptr) {
        DrawStudy(*study, analysis, pen);
        KeepReadOut(*study, analysis, chart.StudyReadout);
    }
    return drawing;
}

}  // namespace brantlow
