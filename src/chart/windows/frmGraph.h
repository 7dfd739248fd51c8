// The chart window: one ticker in three panels, with the pick lists, the series slots, the time-frame buttons
// and the read-outs around them. It passes clicks on to the routines of chart/chart_actions.h and shows what
// they leave in the chart's session. The main frame starts the chart and makes one window for it.
#pragma once

#include <QHash>
#include <QList>
#include <QWidget>
#include <string_view>

#include "chart/chart_actions.h"
#include "chart/chart_options.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;

namespace brantlow {

class PanelStack;

class frmGraph final : public QWidget {
    Q_OBJECT
  public:
    // Shows the chart that was started in `context`, whose parts outlive the window, and so do `options`.
    frmGraph(const ChartContext& context, ChartOptions& options);

    const ChartSession& Chart() const { return context_.chart; }
    // What a picture or a print of the window holds: all of the chart, even where the window is smaller.
    QWidget* ClientArea() const { return sheet_; }
    // The alarms of this row of the open table are drawn from now on.
    void ShowAlarms(const QuoteTable& table, std::size_t row);
    // The options have changed.
    void ShowOptions();

  Q_SIGNALS:
    // The user asked to close this window; the main frame decides.
    void ExitAsked();
    // "Test Buy and Sell Conditions" was pressed.
    void TestAsked();
    // The person has changed an option at the chart itself, which is shown already.
    void OptionsChosen();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildValues(QBoxLayout& rows);
    void BuildPicks(QBoxLayout& rows);
    void BuildPanels(QBoxLayout& rows);
    void BuildSlots(QBoxLayout& column);
    void BuildReadOuts(QBoxLayout& column);
    void BuildFrameButtons(QBoxLayout& column);
    QLabel* AddEmptyText(std::string_view name, Panel panel);
    QLabel* AddLabel(std::string_view control, const QString& words = {});
    QPushButton* AddButton(std::string_view control, const QString& words, const QString& toolTip,
                           void (frmGraph::*pressed)());
    void ConnectPanels();

    void Picked(std::size_t list, int item);
    void ClearPrice();
    void ClearVolume();
    void Coarser();
    void Finer();

    // Brings everything on the window to what the session holds.
    void Refresh();
    void ShowLabels();
    void ShowReadOut();
    // All of `text`, in a smaller font where the label is too narrow for it.
    void ShowWhole(std::string_view control, const std::string& text);
    void ShowEmptyTexts();

    ChartContext context_;
    ChartOptions& options_;
    QWidget* sheet_;
    QScrollArea* scroll_;
    PanelStack* panels_;
    QHash<QString, QLabel*> labels_;
    QList<QComboBox*> picks_;
    QLabel* timeFrame_ = nullptr;
    QLabel* emptyPrice_ = nullptr;
    QLabel* emptyStudy_ = nullptr;
    QPushButton* Command5 = nullptr;
    QPushButton* Command6 = nullptr;
};

}  // namespace brantlow
