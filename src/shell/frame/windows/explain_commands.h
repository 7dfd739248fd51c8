// The explanation of a verdict: a pane beside the table of verdicts that follows the cell in hand, the same
// in short as a tool tip while the pane is open, and the chart with the series that a condition looks at.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <optional>

#include "indicators/analysis.h"
#include "selector/evaluation.h"
#include "selector/explanation.h"
#include "shell/frame/windows/frame_hands.h"

class QModelIndex;

namespace brantlow {

class ExplainPane;

class ExplainCommands final : public QObject {
  public:
    explicit ExplainCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();
    // A table has come into sight: its tool tips are this subject's, where it is one of verdicts.
    void TableShown();

  protected:
    // The tool tips of the open table.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // What is explained: a condition of a ticker.
    struct Verdict {
        std::string ticker;
        std::size_t condition = 0;
        std::string text;  // of the cell
        ConditionBlock block = {};
        ConditionExplanation explanation = {};
    };

    void Explain();
    void MakePane();
    void Follow();
    void ShowCell();
    bool PaneShows() const;
    void ShowOrigin();
    void OpenChart();
    Interval Bars() const;
    std::optional<Date> LastDay() const;
    // What is behind a cell, or the sentence that says why there is nothing to explain.
    std::optional<Verdict> VerdictAt(const QModelIndex& cell, std::string& sentence);
    bool ShowTip(const QModelIndex& cell, const QPoint& onScreen);

    const FrameHands& frame_;
    QPointer<ExplainPane> pane_;
    QPointer<frmQuoteGrid> followed_;
    // A series of its own, so that an open chart keeps the one that it draws.
    std::unique_ptr<Analysis> analysis_;
};

}  // namespace brantlow
