#include "chart/chart_actions.h"

#include <algorithm>
#include <iterator>

#include "alerts/price_alarms.h"
#include "base/numbers.h"
#include "chart/chart_panels.h"
#include "chart/panel_colours.h"
#include "chart/panel_paint.h"
#include "chart/signals.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, kVolumeEntries> kFirstVolumeSeries = {"Volume", "Average", "LR",
                                                                             "L. UCL", "",        ""};
// From the pointer to the cursor line.
constexpr double kCursorOffset = 15;
constexpr std::array<Panel, 3> kPaintOrder = {Panel::Price, Panel::Study, Panel::Volume};

void TakeAlarms(const ChartSelection& selection, ChartSession& chart) {
    if (selection.table == nullptr) return;
    ChartAlarms alarms{chart.HighAlarm, chart.LowAlarm};
    LoadChartAlarms(*selection.table, selection.row, alarms);
    chart.HighAlarm = alarms.ChartHighAlarm;
    chart.LowAlarm = alarms.ChartLowAlarm;
}

PanelDrawing Paint(ChartContext& context, Panel panel) {
    switch (panel) {
        case Panel::Price:
            return PaintPricePanel(context.chart, context.analysis, context.session.settings);
        case Panel::Study:
            return PaintStudyPanel(context.chart, context.analysis);
        case Panel::Volume:
            break;
    }
    return PaintVolumePanel(context.chart, context.analysis);
}

void PaintCleared(ChartContext& context, Panel panel) {
    context.chart.Picture(panel) = Paint(context, panel);
}

void PaintOver(ChartContext& context, Panel panel) {
    PanelDrawing& picture = context.chart.Picture(panel);
    picture = PaintedOver(picture, Paint(context, panel));
}

// The first free place from `first` on takes `item`.
template <typename Iterator>
void FillFirstFree(Iterator first, Iterator last, std::string_view item) {
    const Iterator free = std::find(first, last, std::string());
    if (free != last) *free = item;
}

void ReloadFromWindow(ChartContext& context, Signals signals) {
    context.chart.SelectorTicker = context.chart.Label58;
    if (const Failure failure = ReloadChart(context, signals)) context.session.person.Say(Sentence(failure));
}

void ChangeTimeFrame(ChartContext& context, int timeFrame) {
    context.chart.ChartTimeFrame = timeFrame;
    ReloadFromWindow(context, Signals::Compute);
    PaintAllPanels(context);
}

// The bar under `x`, 0 for none. Neighbouring bars overlap; the later one wins.
std::size_t BarAt(double x, std::size_t barCount) {
    std::size_t found = 0;
    for (std::size_t i = 1; i <= barCount; ++i) {
        const double start = kBarSpacing * static_cast<double>(i);
        if (x >= start && x < start + kPanelLeft) found = i;
    }
    return found;
}

// The chart as it was loaded, for whatever that has brought.
ChartStart Painted(ChartContext& context, const Failure& failure) {
    PaintAllPanels(context);
    if (failure) {
        context.session.person.Say(Sentence(failure));
        return ChartStart::Unreadable;
    }
    return context.analysis.series.LastBar > 1 ? ChartStart::Done : ChartStart::NoHistory;
}

}  // namespace

ChartStart StartChart(ChartContext& context, const ChartSelection& selection, std::string_view style) {
    ChartSession& chart = context.chart;
    if (selection.ticker.empty()) {
        context.session.person.Say(kNoTickerForChart);
        return ChartStart::NoTicker;
    }
    if (!style.empty()) chart.ChartStyle = style;
    TakeAlarms(selection, chart);
    chart.SelectorTicker = selection.ticker;
    chart.ChartTimeFrame = kDailyFrame;
    const Failure failure = ReloadChart(context, Signals::Compute);
    PrepareChartWindow(context);
    return Painted(context, failure);
}

ChartStart ChangeTicker(ChartContext& context, const ChartSelection& selection) {
    ChartSession& chart = context.chart;
    if (selection.ticker.empty()) {
        context.session.person.Say(kNoTickerForChart);
        return ChartStart::NoTicker;
    }
    chart.HighAlarm = chart.LowAlarm = 0;
    TakeAlarms(selection, chart);
    chart.SelectorTicker = selection.ticker;
    chart.ReadOut = {};
    const Failure failure = ReloadChart(context, Signals::Compute);
    return Painted(context, failure);
}

bool ShowAlarms(ChartContext& context, const ChartSelection& selection) {
    ChartSession& chart = context.chart;
    const double high = chart.HighAlarm;
    const double low = chart.LowAlarm;
    TakeAlarms(selection, chart);
    if (chart.HighAlarm == high && chart.LowAlarm == low) return false;
    ReloadFromWindow(context, Signals::Keep);
    PaintCleared(context, Panel::Price);
    return true;
}

void PrepareChartWindow(ChartContext& context) {
    ChartSession& chart = context.chart;
    SettingsTables& settings = context.session.settings;
    LoadSettingsFile(SettingsFile::Graph, context.session.AppPath, settings);
    if (chart.ChartStyle == kDefaultStyle || chart.ChartStyle == kCandleStickStyle) {
        SetText(settings, *kChartStyle.row, chart.ChartStyle);
    }
    for (std::size_t slot = 0; slot < chart.Slots.size(); ++slot) {
        chart.Slots[slot] = TextOf(settings, ChartSeriesRow(slot));
    }
    std::copy(kFirstVolumeSeries.begin(), kFirstVolumeSeries.end(), chart.VolumeSeriesList.begin());
    chart.Combo1 = kPriceName;
    chart.Combo2 = kFirstStudy;
    chart.Combo3 = kVolumeName;
    chart.ReadOut = {};
}

void PaintAllPanels(ChartContext& context) {
    for (const Panel panel : kPaintOrder) PaintCleared(context, panel);
}

Interval IntervalOf(int timeFrame) {
    if (timeFrame == kWeeklyFrame) return Interval::Weekly;
    return timeFrame == kMonthlyFrame ? Interval::Monthly : Interval::Daily;
}

int TimeFrameOf(Interval interval) {
    if (interval == Interval::Weekly) return kWeeklyFrame;
    return interval == Interval::Monthly ? kMonthlyFrame : kDailyFrame;
}

Failure ReloadChart(ChartContext& context, Signals signals) {
    Analysis& analysis = context.analysis;
    const SettingsTables& settings = context.session.settings;
    HistorySource source = HistoryOf(context.session);
    if (context.chart.LastDay) source.lastDay = context.chart.LastDay;
    Failure failure = LoadSeriesFor(source, context.chart.SelectorTicker,
                                    IntervalOf(context.chart.ChartTimeFrame), analysis.series);
    // The bars of the ticker before are none of this one's.
    if (failure) analysis.series.BarCount = analysis.series.LastBar = analysis.series.LastRowRead = 0;
    KeepBarsAsRead(analysis.series, context.chart);
    ComputeIndicators(analysis.series, analysis.indicators);
    if (signals == Signals::Keep) return failure;
    if (HasCondition(settings, kBuySide)) ComputeBuySignals(settings, analysis, context.chart);
    if (HasCondition(settings, kSellSide)) ComputeSellSignals(settings, analysis, context.chart);
    return failure;
}

void PickPriceSeries(ChartContext& context, std::string_view item) {
    context.chart.Combo1 = item;
    FillFirstFree(std::next(context.chart.Slots.begin()), context.chart.Slots.end(), item);
    PaintOver(context, Panel::Price);
}

bool HasFreeSlot(const ChartSession& chart) {
    return std::find(std::next(chart.Slots.begin()), chart.Slots.end(), std::string()) != chart.Slots.end();
}

void ClearPriceSeries(ChartContext& context) {
    context.chart.Slots = {std::string(kPriceName)};
    PaintCleared(context, Panel::Price);
}

void PickStudy(ChartContext& context, std::string_view item) {
    context.chart.Combo2 = item;
    PaintCleared(context, Panel::Study);
}

void PickVolumeSeries(ChartContext& context, std::string_view item) {
    context.chart.Combo3 = item;
    FillFirstFree(context.chart.VolumeSeriesList.begin(), context.chart.VolumeSeriesList.end(), item);
    PaintOver(context, Panel::Volume);
}

void ClearVolumeSeries(ChartContext& context) {
    context.chart.VolumeSeriesList = {std::string(kVolumeName)};
    PaintCleared(context, Panel::Volume);
}

bool CoarserTimeFrame(ChartContext& context) {
    if (!HasCoarserTimeFrame(context.chart)) return false;
    ChangeTimeFrame(context, context.chart.ChartTimeFrame + 1);
    return true;
}

bool FinerTimeFrame(ChartContext& context) {
    if (!HasFinerTimeFrame(context.chart)) return false;
    ChangeTimeFrame(context, context.chart.ChartTimeFrame - 1);
    return true;
}

bool HasCoarserTimeFrame(const ChartSession& chart) {
    return chart.ChartTimeFrame < kMonthlyFrame;
}

bool HasFinerTimeFrame(const ChartSession& chart) {
    return chart.ChartTimeFrame > kDailyFrame;
}

DrawnLine PaintCursor(Panel panel, double x) {
    const PanelForm& form = FormOf(panel);
    const double cursorX = x + kCursorOffset;
    return LineBetween({cursorX, form.topY}, {cursorX, form.bottomY + kAxisOverrun}, kCursorColour);
}

void PressPanel(ChartContext& context, double x) {
    ChartSession& chart = context.chart;
    const WorkingSeries& series = context.analysis.series;
    for (const Panel panel : kPaintOrder) chart.Picture(panel).items.emplace_back(PaintCursor(panel, x));
    chart.ReadOut = {};
    if (const std::size_t bar = BarAt(x, series.BarCount)) {
        chart.ReadOut = {series.QuoteDate[bar], PlainText(series.ClosePrice, bar),
                         PlainText(series.Volume, bar), PlainText(chart.StudyReadout, bar)};
    }
}

void ReleasePanel(ChartContext& context, Panel panel) {
    if (panel == Panel::Price) ReloadFromWindow(context, Signals::Keep);
    context.chart.ReadOut = {};
    PaintAllPanels(context);
}

std::string TipText(const ChartSession& chart, Panel panel, double y) {
    return TipText(AxisOf(chart, panel), panel, y);
}

std::string TipText(const ValueAxis& axis, Panel panel, double y) {
    return FormatPicture(panel == Panel::Volume ? kVolumeTipPicture : kPricePicture, axis.ValueAt(y));
}

}  // namespace brantlow
