// What a person can do with the chart: start it, pick and clear series, change the time frame, press and
// release a mouse button on a panel. The chart window passes its clicks on to these routines and then shows
// what stands in ChartSession::Pictures, the slots, the pick lists' texts and the read-out.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "chart/chart_session.h"
#include "indicators/analysis.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

// What the routines work on.
struct ChartContext {
    Session& session;
    Analysis& analysis;
    ChartSession& chart;
};

// The ticker to chart and, when it stands in an open table, the row with its alarms.
struct ChartSelection {
    std::string_view ticker;
    const QuoteTable* table = nullptr;
    std::size_t row = 0;
};

inline constexpr std::string_view kNoTickerForChart = "You must select a ticker symbol to obtain a graph.";

enum class ChartStart {
    NoTicker,    // the sentence was said; nothing has changed
    NoHistory,   // the chart stands empty: the window shows frmGraphNoData over it
    Unreadable,  // the chart stands empty: a file of the history cannot be read, which was said
    Done,
};

// Starts a daily chart and paints it. `style` is kDefaultStyle or kCandleStickStyle from a menu, "" from the
// tool button. Without a table the alarms stay what they are.
ChartStart StartChart(ChartContext& context, const ChartSelection& selection, std::string_view style);

// Another ticker in the chart's window: style, time frame, day, series and study stay what they are. Without
// a table it has no alarms.
ChartStart ChangeTicker(ChartContext& context, const ChartSelection& selection);

// The alarms of another row of the table, or of one whose alarms have changed: they are taken over and the
// price panel is painted anew, with the series loaded anew. Alarms that are the same change nothing; false
// then.
bool ShowAlarms(ChartContext& context, const ChartSelection& selection);

// What the chart window does when it is loaded, before it is painted: reads VTRGRAPHset.ini again, puts the
// menu's style over it, fills the slots, the volume list and the pick lists. StartChart includes it.
void PrepareChartWindow(ChartContext& context);

// Clears the panels and paints price, study and volume.
void PaintAllPanels(ChartContext& context);

// The value of ChartTimeFrame for an interval, and the other way round.
Interval IntervalOf(int timeFrame);
int TimeFrameOf(Interval interval);

enum class Signals : unsigned char { Compute, Keep };

// Loads and computes the working series of SelectorTicker anew at ChartTimeFrame. Paints nothing. Where a
// file of the history cannot be read there are no bars.
Failure ReloadChart(ChartContext& context, Signals signals);

// A pick in Combo1: the first empty slot of Label14 to Label19 takes the series. With none empty the panel is
// only painted again.
void PickPriceSeries(ChartContext& context, std::string_view item);
// Whether such a pick finds an empty slot, and what a person is told where it does not.
bool HasFreeSlot(const ChartSession& chart);
inline constexpr std::string_view kNoFreeSlot = "Six series are drawn. Clear Series first.";
// Command3.
void ClearPriceSeries(ChartContext& context);
// A pick in Combo2.
void PickStudy(ChartContext& context, std::string_view item);
// A pick in Combo3.
void PickVolumeSeries(ChartContext& context, std::string_view item);
// Command4.
void ClearVolumeSeries(ChartContext& context);

// Command5 and Command6: a coarser or finer time frame, reloaded and painted. False at the end of the frames,
// where nothing happens.
bool CoarserTimeFrame(ChartContext& context);
bool FinerTimeFrame(ChartContext& context);
bool HasCoarserTimeFrame(const ChartSession& chart);
bool HasFinerTimeFrame(const ChartSession& chart);

// A button pressed at `x` twips of any panel: the read-out of the bar there, and the cursor line drawn over
// all three panels.
void PressPanel(ChartContext& context, double x);
// Released on `panel`: the read-out is blank, the panels are painted anew; after the price panel with the
// series loaded anew, which undoes the repairs of its paint.
void ReleasePanel(ChartContext& context, Panel panel);

// The tip while the mouse moves over `panel` at `y` twips: the value there, by the axis of the last paint or
// by another one.
std::string TipText(const ChartSession& chart, Panel panel, double y);
std::string TipText(const ValueAxis& axis, Panel panel, double y);

}  // namespace brantlow
