// The pane beside a table of verdicts: why the condition in hand holds for the ticker in hand or not, line by
// line with the numbers. The main frame fills it.
#pragma once

#include <QDockWidget>

#include "indicators/working_series.h"
#include "selector/evaluation.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace brantlow {

class ExplainPane final : public QDockWidget {
    Q_OBJECT
  public:
    explicit ExplainPane(QWidget* parent);

    // The bars that the table was made of: daily, weekly or monthly.
    Interval ChosenInterval() const;
    // The lines of a condition, 1 to 10, at the newest bar of the ticker that `analysis` holds.
    void Show(const std::string& ticker, std::size_t condition, const CompiledConditions& conditions,
              const Analysis& analysis);
    // A sentence alone, where there is nothing to explain.
    void ShowSentence(const QString& sentence);

  Q_SIGNALS:
    // Another interval was chosen.
    void IntervalChosen();
    void ChartAsked();

  private:
    QComboBox* interval_;
    QLabel* title_;
    QListWidget* lines_;
    QPushButton* chart_;
};

}  // namespace brantlow
