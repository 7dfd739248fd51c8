// The chart commands: its window is started for the selected ticker and goes with the children.
#pragma once

#include <QPointer>
#include <string_view>

#include "chart/chart_actions.h"
#include "chart/chart_options.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"

class QMdiSubWindow;

namespace brantlow {

class frmGraph;

class ChartCommands final {
  public:
    // All outlive this. `userStore` keeps the options of the charts.
    ChartCommands(const FrameHands& frame, Analysis& analysis, const Path& userStore)
        : frame_(frame), analysis_(analysis), userStore_(userStore) {}

    CommandRows Rows();

    // The chart's window, null when none is open.
    frmGraph* Form() const;
    void CloseForm();
    void CloseForPerson();
    // The open chart's alarm lines become those of the table's selected row.
    void FollowRow();
    // The chart of a ticker, whatever row is selected.
    void Show(const ChartWish& wish);
    // Takes the options over from the user's store, and shows them in the menu.
    void LoadOptions();

  private:
    void ChartHighLowClose();
    void ChartCandleStick();
    void ChartAgain();
    void ShowChart(std::string_view style);
    void ShowSelection(const ChartSelection& selection, std::string_view style,
                       const ChartWish* wish = nullptr);
    void LoadForm(const ChartContext& context);
    void OfferHistory();
    void DownloadHistory();
    // The chart's window goes to another ticker, or to the next one of its walk.
    void ShowTicker(const std::string& ticker);
    void Step(bool downwards);
    void OfferWalks();
    // The entry that shows or changes a choice of yes or no.
    template <bool ChartOptions::*choice>
    void Toggle();
    template <ChartColours colours>
    void Colour();
    // The options as they are now: in the menu, on the chart, in the store.
    void OptionsChanged();
    void ShowOptionsInMenu();
    void KeepOptions();

    const FrameHands& frame_;
    Analysis& analysis_;
    const Path& userStore_;
    ChartOptions options_;
    // Outlives each chart: the next one starts in the style of the last.
    ChartSession chart_;
    QPointer<frmGraph> form_;
    QPointer<QMdiSubWindow> window_;
};

}  // namespace brantlow
