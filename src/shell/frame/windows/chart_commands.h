// The chart commands: its window is started for the selected ticker and goes with the children.
#pragma once

#include <QPointer>
#include <string_view>

#include "chart/chart_actions.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"

class QMdiSubWindow;

namespace brantlow {

class frmGraph;

class ChartCommands final {
  public:
    // Both outlive this.
    ChartCommands(const FrameHands& frame, Analysis& analysis) : frame_(frame), analysis_(analysis) {}

    CommandRows Rows();

    // The chart's window, null when none is open.
    frmGraph* Form() const;
    void CloseForm();
    // The open chart's alarm lines become those of the table's selected row.
    void FollowRow();
    // The chart of a ticker, whatever row is selected, with the history up to a day.
    void ShowAsOf(const std::string& ticker, const Date& day);

  private:
    void ChartHighLowClose();
    void ChartCandleStick();
    void ChartAgain();
    void ShowChart(std::string_view style);
    void ShowSelection(const ChartSelection& selection, std::string_view style);
    void LoadForm(const ChartContext& context);
    void OfferHistory();
    void DownloadHistory();

    const FrameHands& frame_;
    Analysis& analysis_;
    // Outlives each chart: the next one starts in the style of the last.
    ChartSession chart_;
    QPointer<frmGraph> form_;
    QPointer<QMdiSubWindow> window_;
};

}  // namespace brantlow
