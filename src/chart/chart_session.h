// The state around the chart's panels: the ticker in hand, style and time frame, the series slots, the scales
// of the last paint, what stands on the panels. One chart at a time, since all charts would draw the one set
// of working series; the state lives as long as the program and passes from chart to chart.
//
// chart_actions.h holds what a person can do with it, the three paint routines draw from it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "chart/drawing.h"
#include "chart/panel_geometry.h"
#include "chart/pick_lists.h"
#include "indicators/number_series.h"
#include "indicators/working_series.h"
#include "shell/settings/choices.h"

namespace brantlow {

inline constexpr std::string_view kDefaultStyle = kChartStyleWords[0];  // High, Low, Close
inline constexpr std::string_view kCandleStickStyle = kChartStyleWords[1];

// Values of ChartTimeFrame.
inline constexpr int kDailyFrame = 1;
inline constexpr int kWeeklyFrame = 2;
inline constexpr int kMonthlyFrame = 3;

// Object names of the series slots, top to bottom.
inline constexpr std::array<std::string_view, 7> kSlotControls = {
    "Label13", "Label14", "Label15", "Label16", "Label17", "Label18", "Label19",
};
inline constexpr std::size_t kVolumeEntries = 6;

// What the labels show while a button is held on a panel; empty otherwise.
struct MouseReadOut {
    std::string Label68;  // date
    std::string Label69;  // close
    std::string Label28;  // volume
    std::string Label26;  // study
};

// What the paint of the price and the volume panel changes of a bar, as it stands in the history.
struct BarAsRead {
    double open = 0, high = 0, low = 0, volume = 0;
};

struct ChartSession {
    std::string SelectorTicker;
    // "" until a menu sets it, then kDefaultStyle or kCandleStickStyle.
    std::string ChartStyle;
    int ChartTimeFrame = kDailyFrame;
    // The chart shows the ticker as it stood on this day; nothing for today.
    std::optional<Date> LastDay;
    // The ticker's alarms; 0 is none.
    double HighAlarm = 0;
    double LowAlarm = 0;

    // Captions of Label13 to Label19: items of Combo1, or empty.
    std::array<std::string, kSlotControls.size()> Slots;
    // Names drawn on the volume panel; "" is a free entry.
    std::array<std::string, kVolumeEntries> VolumeSeriesList;
    // Current texts of the pick lists. A paint of the price or the volume panel leaves the last series drawn.
    std::string Combo1{kPriceName};
    std::string Combo2{kFirstStudy};
    std::string Combo3{kVolumeName};
    // Caption of the header that names the ticker; a reload takes the ticker from it.
    std::string Label58;

    // Scales of the last paint.
    double PriceTop = 0, PriceBottom = 0, PriceMiddle = 0, PriceScale = 0;
    double StudyTop = 0, StudyBottom = 0, StudyScale = 0;
    double VolumeTop = 0, VolumeBottom = 0, VolumeScale = 0;

    // The study shown, bar by bar.
    NumberSeries StudyReadout;
    // "True", "False" or "", elements 1 to BarCount.
    TextSeries BuySignal;
    TextSeries SellSignal;

    // Element i is bar i of the last load; element 0 is none.
    std::vector<BarAsRead> AsRead;

    MouseReadOut ReadOut;
    // What stands on the panels now, in the order of Panel.
    std::array<PanelDrawing, kPanels.size()> Pictures;

    PanelDrawing& Picture(Panel panel) { return Pictures[static_cast<std::size_t>(panel)]; }
    const PanelDrawing& Picture(Panel panel) const { return Pictures[static_cast<std::size_t>(panel)]; }
};

// Takes down the bars of a load before they are painted.
void KeepBarsAsRead(const WorkingSeries& series, ChartSession& chart);

// The vertical scale of a panel as its last paint left it.
ValueAxis AxisOf(const ChartSession& chart, Panel panel);

}  // namespace brantlow
