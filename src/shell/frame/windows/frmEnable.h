// The small window of a long run: Exit, Pause, Resume. It stands in front of the disabled main frame and only
// writes the run's control word; the run reads it at its next ticker.
#pragma once

#include <QDialog>

#include "shell/run_control.h"

class QLabel;
class QPushButton;

namespace brantlow {

class frmEnable final : public QDialog {
    Q_OBJECT
  public:
    // `run` outlives the window; `frame` is enabled again by Exit.
    frmEnable(RunControl& run, QWidget* frame);

    // Tells whether the run stands still, which decides the buttons that make sense.
    void ShowPaused(bool paused);

  private:
    void StandInCorner();
    void Exit();
    void Pause();
    void Resume();

    RunControl& run_;
    QWidget* mainFrame_;
    QLabel* state_;
    QPushButton* pause_;
    QPushButton* resume_;
};

}  // namespace brantlow
