// The paint routines of the chart's three panels, and the cursor line over them. Each draws its whole panel
// from the working series, leaves the scale in the session and gives the texts of its labels.
#pragma once

#include "chart/chart_session.h"
#include "chart/drawing.h"
#include "indicators/analysis.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// Draws the bars, the series of the seven slots, the signals' marks and the alarms. Stretches highs and lows
// over gaps and fills missing opens in the working series itself, until the next reload. Writes the captions
// of the slots back into GraphSettings.
PanelDrawing PaintPricePanel(ChartSession& chart, Analysis& analysis, SettingsTables& settings);

// Draws the study named by Combo2 and keeps its values in StudyReadout. An unknown name draws the frame.
PanelDrawing PaintStudyPanel(ChartSession& chart, const Analysis& analysis);

// Draws the series of VolumeSeriesList. Volumes of 0 become 1 in the working series, until the next reload.
PanelDrawing PaintVolumePanel(ChartSession& chart, Analysis& analysis);

// The line that marks a press at `x` twips on `panel`.
DrawnLine PaintCursor(Panel panel, double x);

}  // namespace brantlow
