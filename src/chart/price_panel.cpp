#include <algorithm>

#include "base/numbers.h"
#include "chart/chart_panels.h"
#include "chart/panel_colours.h"
#include "chart/panel_paint.h"
#include "chart/series_tables.h"
#include "chart/signals.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

// Signals of the bars before this one are not marked.
constexpr std::size_t kFirstMarkedBar = 30;
// A candle's body, left and right of its wick.
constexpr double kBodyLeft = 15;
constexpr double kBodyRight = 10;

// --- repairs and range ---

// Closes the gap between the last close and a bar beyond it by stretching the bar.
void CloseGap(WorkingSeries& series, std::size_t i) {
    const double before = series.ClosePrice[i - 1];
    const double close = series.ClosePrice[i];
    if (close > before && series.LowPrice[i] > before) {
        series.LowPrice.Set(i, before);
    } else if (close < before && series.HighPrice[i] < before) {
        series.HighPrice.Set(i, before);
    }
}

void RepairBars(WorkingSeries& series, bool candles) {
    for (std::size_t i = 2; i <= series.BarCount; ++i) {
        CloseGap(series, i);
        if (candles && series.OpenPrice[i] == 0) series.OpenPrice.Set(i, series.ClosePrice[i - 1]);
    }
}

struct PriceRange {
    double top;
    double bottom;
    void Take(double high, double low) {
        if (high > top) top = high;
        if (low < bottom) bottom = low;
    }
};

// Of the bars, the alarms and the newest bar's 52 weeks, which need not lie within the window.
PriceRange RangeOf(const WorkingSeries& series, const ChartSession& chart) {
    PriceRange range{series.HighPrice[1], series.LowPrice[1]};
    for (std::size_t i = 1; i <= series.BarCount; ++i) range.Take(series.HighPrice[i], series.LowPrice[i]);
    if (series.BarCount > 0) {
        range.Take(chart.HighAlarm > 0 ? chart.HighAlarm : range.top,
                   chart.LowAlarm > 0 ? chart.LowAlarm : range.bottom);
    }
    const double yearLow = series.Low52Week[series.BarCount];
    range.Take(series.High52Week[series.BarCount], yearLow > 0 ? yearLow : range.bottom);
    if (range.top == range.bottom) range = {1, 0};
    return range;
}

void SetScale(const PriceRange& range, ChartSession& chart) {
    chart.PriceTop = range.top;
    chart.PriceBottom = range.bottom;
    chart.PriceMiddle = (range.top - range.bottom) / 2 + range.bottom;
    chart.PriceScale = FormOf(Panel::Price).Height() / (range.top - range.bottom);
}

// --- bars ---

void DrawHighLowClose(const WorkingSeries& series, std::size_t i, const PanelPen& pen) {
    pen.Upright(i, series.LowPrice[i], series.HighPrice[i], kBlack);
    const double x = BarX(i);
    const double y = pen.Y(series.ClosePrice[i]);
    pen.Line({x - kBarSpacing, y}, {x + kBarSpacing, y}, kBlack);
}

Rgb BodyColour(double open, double close) {
    if (close < open) return kFallingBody;
    return close > open ? kRisingBody : kBlack;
}

void DrawCandle(const WorkingSeries& series, std::size_t i, const PanelPen& pen) {
    const double open = series.OpenPrice[i];
    const double close = series.ClosePrice[i];
    pen.Upright(i, std::max(open, close), series.HighPrice[i], kBlack);
    pen.Upright(i, series.LowPrice[i], std::min(open, close), kBlack);
    const double left = BarX(i) - kBodyLeft;
    const double right = BarX(i) + kBodyRight;
    const double openY = pen.Y(open);
    const double closeY = pen.Y(close);
    pen.Line({left, closeY}, {right, closeY}, kBlack);
    pen.Line({left, openY}, {right, openY}, kBlack);
    const Rgb colour = BodyColour(open, close);
    pen.Line({left, openY}, {left, closeY}, colour);
    pen.Line({right, openY}, {right, closeY}, colour);
}

// --- series ---

// A value beyond the range of numbers stays beyond it; LineBetween cuts the line.
void DrawOffsetLine(const NumberSeries& centre, const NumberSeries* offset, std::size_t i,
                    const PriceSeries& row, const PanelPen& pen) {
    const auto at = [&](std::size_t k) { return centre[k] + (offset == nullptr ? 0 : (*offset)[k]); };
    pen.Segment({i - 1, at(i - 1)}, {i, at(i)}, row.line);
}

void DrawSeries(const PriceSeries& row, const Analysis& analysis, const PanelPen& pen) {
    const Indicators& indicators = analysis.indicators;
    const NumberSeries& centre = indicators.*row.centre;
    for (std::size_t i = row.fromBar; i <= analysis.series.BarCount; ++i) {
        if (row.upper == nullptr) {
            DrawOffsetLine(centre, nullptr, i, row, pen);
        } else {
            DrawOffsetLine(centre, &(indicators.*row.upper), i, row, pen);
            DrawOffsetLine(centre, &(indicators.*row.lower), i, row, pen);
        }
    }
}

void DrawRegressionLine(const Analysis& analysis, double offset, Rgb colour, const PanelPen& pen) {
    const NumberSeries& line = analysis.indicators.LRPrice;
    const std::size_t newest = analysis.series.BarCount;
    pen.Segment({1, line[1] + offset}, {newest, line[newest] + offset}, colour);
}

void DrawSeries(const WholeWindowSeries& row, const Analysis& analysis, const PanelPen& pen) {
    DrawRegressionLine(analysis, 0, kRegressionColour, pen);
    DrawRegressionLine(analysis, analysis.indicators.*row.upper, row.colour, pen);
    DrawRegressionLine(analysis, analysis.indicators.*row.lower, row.colour, pen);
}

void DrawPrice(const WorkingSeries& series, bool candles, const PanelPen& pen) {
    for (std::size_t i = 1; i <= series.BarCount; ++i) {
        if (candles) {
            DrawCandle(series, i, pen);
        } else {
            DrawHighLowClose(series, i, pen);
        }
    }
}

// Draws one series by its name; `caption` becomes its colour when it has one and anything of it was drawn.
void DrawNamed(std::string_view name, const Analysis& analysis, bool candles, const PanelPen& pen,
               Rgb& caption) {
    if (name == kPriceName) DrawPrice(analysis.series, candles, pen);
    if (const PriceSeries* row = RowNamed(kPriceSeries, name)) {
        DrawSeries(*row, analysis, pen);
        if (analysis.series.BarCount >= row->fromBar) caption = row->caption;
    }
    const WholeWindowSeries* row = RowNamed(kWholeWindowSeries, name);
    if (row != nullptr && analysis.series.BarCount > 0) {
        DrawSeries(*row, analysis, pen);
        caption = row->colour;
    }
}

// The slots one after the other, and their captions. An empty slot repeats the series before it, which would
// draw the same lines over themselves; it only takes the colour.
void DrawSlots(ChartSession& chart, const Analysis& analysis, bool candles, const PanelPen& pen,
               std::vector<PanelLabel>& labels) {
    Rgb caption = kBlack;
    for (std::size_t slot = 0; slot < chart.Slots.size(); ++slot) {
        const std::string& series = chart.Slots[slot];
        const bool repeats = slot > 0 && (series.empty() || series == chart.Combo1);
        if (!repeats) {
            chart.Combo1 = series;
            DrawNamed(series, analysis, candles, pen, caption);
        }
        labels.push_back({kSlotControls[slot], series, caption});
    }
}

// --- marks ---

// The turns from buying to selling and back; the first mark is always one of buying. A mark stands one bar to
// the left of its signal.
void DrawSignals(const ChartSession& chart, std::size_t barCount, const PanelPen& pen) {
    bool bought = false;
    for (std::size_t i = kFirstMarkedBar; i <= barCount; ++i) {
        const TextSeries& wanted = bought ? chart.SellSignal : chart.BuySignal;
        const TextSeries& opposite = bought ? chart.BuySignal : chart.SellSignal;
        if (wanted[i] != "True" || opposite[i] != "False") continue;
        pen.Mark({BarX(i - 1), FormOf(Panel::Price).bottomY}, bought ? kSellMark : kBuyMark);
        bought = !bought;
    }
}

void DrawAlarms(const ChartSession& chart, const PanelPen& pen) {
    pen.Mark({kAlarmX, pen.Y(chart.LowAlarm)}, kAlarmMark);
    pen.Mark({kAlarmX, pen.Y(chart.HighAlarm)}, kAlarmMark);
}

// --- labels ---

std::vector<PanelLabel> PriceLabels(const ChartSession& chart, const WorkingSeries& series) {
    const auto price = [](double value) { return FormatPicture(kPricePicture, value); };
    const double top = chart.PriceTop;
    const double middle = chart.PriceMiddle;
    const double bottom = chart.PriceBottom;
    const std::size_t newest = series.BarCount;
    return {
        {"Label51", price(top), {}},
        {"Label52", price(middle), {}},
        {"Label53", price(bottom), {}},
        {"Label25", price((top - middle) / 2 + middle), {}},
        {"Label27", price((middle - bottom) / 2 + bottom), {}},
        {"Label58", chart.SelectorTicker, {}},
        {"Label59", PlainText(series.ClosePrice, newest), {}},
        {"Label60", series.QuoteDate[1], {}},
        {"Label61", "-", {}},
        {"Label62", series.QuoteDate[newest], {}},
        {"Label63", price(series.PEGRatio[newest]), {}},
        {"Label64", price(series.PERatio[newest]), {}},
    };
}

void WriteBackSlots(const ChartSession& chart, SettingsTables& settings) {
    for (std::size_t slot = 0; slot < chart.Slots.size(); ++slot) {
        SetText(settings, ChartSeriesRow(slot), chart.Slots[slot]);
    }
}

}  // namespace

PanelDrawing PaintPricePanel(ChartSession& chart, Analysis& analysis, SettingsTables& settings) {
    WorkingSeries& series = analysis.series;
    const bool candles = Get(settings, kChartStyle) == ChartStyleChoice::CandleSticks;
    RepairBars(series, candles);
    SetScale(RangeOf(series, chart), chart);
    // A regression that ends at 0 would draw a line down to it.
    NumberSeries& regression = analysis.indicators.LRPrice;
    if (regression[series.BarCount] == 0) regression.Set(series.BarCount, 1);

    PanelDrawing drawing;
    const ValueAxis axis = AxisOf(chart, Panel::Price);
    const PanelPen pen(drawing, axis);
    DrawFrame(Panel::Price, pen);
    drawing.labels = PriceLabels(chart, series);
    chart.Label58 = chart.SelectorTicker;
    DrawSlots(chart, analysis, candles, pen, drawing.labels);
    if (HasBothConditions(settings)) DrawSignals(chart, series.BarCount, pen);
    DrawAlarms(chart, pen);
    WriteBackSlots(chart, settings);
    return drawing;
}

}  // namespace brantlow
