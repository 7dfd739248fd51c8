// The pane beside a table of verdicts: why the condition in hand holds for the ticker in hand or not, line by
// line with the numbers. The main frame fills it.
#pragma once

#include <QDockWidget>
#include <optional>

#include "base/dates.h"
#include "selector/explanation.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace brantlow {

class ExplainPane final : public QDockWidget {
    Q_OBJECT
  public:
    explicit ExplainPane(QWidget* parent);

    // The bars that verdicts are explained on: daily, weekly or monthly. They are chosen by hand where a
    // table does not tell its own.
    Interval ChosenInterval() const;
    // The bars and the day that the open table tells of itself; nothing where it does not.
    void ShowOrigin(std::optional<Interval> interval, std::optional<Date> day);
    // Why condition 1 to 10 holds for the ticker that `analysis` holds, or not. `verdict` is what the table
    // says of it.
    void Show(const std::string& ticker, std::size_t condition, const ConditionBlock& block,
              const ConditionExplanation& explanation, const Analysis& analysis, const std::string& verdict);
    // A sentence alone, where there is nothing to explain.
    void ShowSentence(const QString& sentence);

  Q_SIGNALS:
    // Another interval was chosen.
    void IntervalChosen();
    void ChartAsked();

  private:
    void FitRows(int width);

    QComboBox* interval_;
    QLabel* day_;
    QLabel* title_;
    QTreeWidget* lines_;
    QPushButton* chart_;
};

}  // namespace brantlow
