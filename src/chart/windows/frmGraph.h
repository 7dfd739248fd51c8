// The chart window: one ticker in three panels, with the pick lists, the series slots, the time-frame buttons
// and the read-outs around them. It passes clicks on to the routines of chart/chart_actions.h and shows what
// they leave in the chart's session. The main frame starts the chart and makes one window for it.
#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart_actions.h"
#include "chart/chart_options.h"
#include "chart/chart_scene.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QSpacerItem;
class QTimer;

namespace brantlow {

class HandDesk;
class PanelStack;
class ValuesLine;

class frmGraph final : public QWidget {
    Q_OBJECT
  public:
    // Shows the chart that was started in `context`, whose parts outlive the window, and so do `options`.
    frmGraph(const ChartContext& context, ChartOptions& options);

    const ChartSession& Chart() const { return context_.chart; }
    // All of the chart, even where the window is smaller.
    QWidget* ClientArea() const { return sheet_; }
    // What a picture or a print of the window holds: the client area without the rings of what is chosen.
    QImage Picture();
    // The same for a page (OnPaper): a chart that was chosen to be dark is light there.
    QImage PaperPicture();
    // Of the window where nothing else gives it a size: the panels stand in their own.
    QSize UsualSize() const;
    // The chart as it is shown now, as an SVG file.
    std::string Svg() const;
    // The alarms of this row of the open table are drawn from now on.
    void ShowAlarms(const QuoteTable& table, std::size_t row);
    // While this is true nothing can be drawn by hand.
    void AskBeforeDrawing(std::function<bool()> isBusy);
    // The options have changed.
    void ShowOptions();
    // Another ticker stands in the chart's context.
    void TickerChanged();
    // The conditions whose hits Page Up and Page Down can go through.
    void OfferWalks(const std::vector<std::size_t>& conditions);
    // The condition of the walk chosen, kEveryRow for all rows.
    std::size_t WalkCondition() const;

  Q_SIGNALS:
    // The user asked to close this window; the main frame decides.
    void ExitAsked();
    // "Test Buy and Sell Conditions" was pressed.
    void TestAsked();
    // The person wants the chart of this ticker.
    void TickerAsked(const std::string& ticker);
    // The person wants the next ticker of the walk, or the one before.
    void StepAsked(bool downwards);
    // A line for the status bar.
    void Told(const std::string& sentence);
    // The person has changed an option at the chart itself, which is shown already.
    void OptionsChosen();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool TakesKeyBeforeScrolling(QKeyEvent& key);
    static constexpr int kSpacing = 4;

    void BuildValues(QBoxLayout& rows);
    void BuildWalk();
    void BuildPicks(QBoxLayout& rows);
    void BuildPanels(QBoxLayout& rows);
    void BuildSlots(QBoxLayout& column);
    void BuildReadOuts(QBoxLayout& column);
    // The read-outs stand under their headings, or beside them where the window is too low for that, and
    // closer together where it still is.
    void ArrangeReadOuts();
    // True where the desktop has turned.
    bool LookAtDesktop();
    void BuildFrameButtons(QBoxLayout& column);
    QLabel* AddEmptyText(std::string_view name, Panel panel);
    QLabel* AddLabel(std::string_view control, const QString& words = {});
    QPushButton* AddButton(std::string_view control, const QString& words, const QString& toolTip,
                           void (frmGraph::*pressed)());
    void ConnectPanels();

    // A strip of parts over the panels: in one row in the chart's own size; in a chart that fits its window
    // it goes on in the next row where the window is narrow.
    struct Strip {
        QWidget* ground = nullptr;
        QList<QWidget*> parts = {};
        int gap = 0;
        // In one row the parts from this one on stand at the right.
        qsizetype atRight = 0;
    };
    void LayOut(const Strip& strip) const;

    struct KeyRow;
    static const KeyRow kKeys[];

    void Picked(std::size_t list, int item);
    void TellNoFreeSlot();
    void CrosshairBack() { MoveCrosshair(-1); }
    void CrosshairOn() { MoveCrosshair(1); }
    void StepDown() { Q_EMIT StepAsked(true); }
    void StepUp() { Q_EMIT StepAsked(false); }
    void ZoomIn();
    void ZoomOut();
    void GoToOldest();
    void GoToNewest();
    void ResetView();
    void Drag(double twips);
    // Draws what the scene's zoom has come to.
    void ShowView();
    // The chart's own lists were painted again, or from another load.
    void PaintedAgain();
    void Reloaded();
    double ZoomCentre() const;
    void EnterTicker();
    void ClearPrice();
    void ClearVolume();
    void Coarser();
    void Finer();

    // Brings everything on the window to what the session holds.
    void Refresh();
    void ShowLabels();
    void ShowCaptions();
    void ShowValues();
    // The crosshair at this bar, 0 for none; `y` twips of `over` where the pointer is there.
    void ShowCrosshair(std::size_t bar, std::optional<Panel> over = {}, double y = 0);
    // The same, and the line of values stays what it is.
    void PlaceCrosshair(std::size_t bar, std::optional<Panel> over = {}, double y = 0);
    void MoveCrosshair(int bars);
    void ShowReadOut();
    // All of `text`, in a smaller font where the label is too narrow for it.
    void ShowWhole(std::string_view control, const std::string& text);
    void ShowEmptyTexts();

    ChartContext context_;
    ChartOptions& options_;
    ChartScene scene_;
    std::size_t crosshair_ = 0;
    // What a drag has not yet moved, in bars.
    double dragged_ = 0;
    QWidget* sheet_;
    QScrollArea* scroll_;
    PanelStack* panels_;
    HandDesk* desk_;
    QHash<QString, QLabel*> labels_;
    QList<QComboBox*> picks_;
    Strip header_;
    Strip choices_;
    ValuesLine* values_ = nullptr;
    QLineEdit* ticker_ = nullptr;
    QComboBox* walk_ = nullptr;
    QWidget* legendGround_ = nullptr;
    QList<QBoxLayout*> readOuts_;
    // Between the groups of the column that they stand in.
    QList<QSpacerItem*> gaps_;
    QBoxLayout* column_ = nullptr;
    QTimer* readAhead_;
    QLabel* timeFrame_ = nullptr;
    QLabel* emptyPrice_ = nullptr;
    QLabel* emptyStudy_ = nullptr;
    QPushButton* Command5 = nullptr;
    QPushButton* Command6 = nullptr;
};

}  // namespace brantlow
