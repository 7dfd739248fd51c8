// The small window of a long run: Exit, Pause, Resume. It stands in front of the disabled main frame and only
// writes the run's control word; the run reads it at its next ticker.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>
#include <string>

#include "shell/run_control.h"

class QLabel;
class QMessageBox;
class QPushButton;
class QStatusBar;

namespace brantlow {

class frmEnable final : public QDialog {
    Q_OBJECT
  public:
    // `run` outlives the window; `frame` is enabled again by Exit.
    frmEnable(RunControl& run, RunStop stop, QWidget* frame);
    ~frmEnable() override;

    // Tells whether the run stands still, which decides the buttons that make sense.
    void ShowPaused(bool paused);
    // What the run does, how far it is and how long it still takes; `ticker` is the one in work.
    void ShowOutlook(const std::string& line, const std::string& ticker);

  protected:
    // Escape asks whether the run is to end.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AskExit();
    void StandInCorner();
    QStatusBar* StatusBar() const;
    void Exit();
    void Pause();
    void Resume();

    RunControl& run_;
    RunStop stop_;
    QWidget* mainFrame_;
    QLabel* state_;
    QPushButton* pause_;
    QPushButton* resume_;
    QPointer<QMessageBox> question_;
    std::string ticker_;
    // What the frame's status bar tells behind Exit.
    QString ending_;
    bool paused_ = false;
};

}  // namespace brantlow
