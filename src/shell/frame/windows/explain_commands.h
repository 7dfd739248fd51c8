// The explanation of a verdict: a pane beside the table of verdicts that follows the cell in hand.
#pragma once

#include <QPointer>
#include <memory>

#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

class ExplainPane;

class ExplainCommands final {
  public:
    explicit ExplainCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

  private:
    void Explain();
    void MakePane();
    void Follow();
    void ShowCell();

    const FrameHands& frame_;
    QPointer<ExplainPane> pane_;
    QPointer<frmQuoteGrid> followed_;
    // A series of its own, so that an open chart keeps the one that it draws.
    std::unique_ptr<Analysis> analysis_;
};

}  // namespace brantlow
