// The check of the database in a window: what was found, in a list that opens each file at its line, and a
// button that repairs what needs no guess. It stands beside the work; the frame runs the check for it.
#pragma once

#include <QDialog>
#include <functional>

#include "check/check_run.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;
class QTreeWidget;

namespace brantlow {

// What the frame does for the window.
struct CheckOperations {
    std::function<CheckReport(CheckMode)> run;  // returns when it is done or stopped
    std::function<void()> stop;
    std::function<double()> share;  // of the run that is done, 0 to 1
    std::function<void(const Finding&)> open;
};

class frmCheckDatabase final : public QDialog {
    Q_OBJECT
  public:
    frmCheckDatabase(CheckOperations operations, Path appPath, QWidget* parent);

    // Looks through everything; a call while it does so changes nothing.
    void Check();

  public Q_SLOTS:
    // While the check runs it is stopped first, and the window goes when it has ended.
    void reject() override;

  private:
    void Repair();
    void Run(CheckMode mode);
    void ShowReport(const CheckReport& report);
    void ShowState();
    void Open(int row);
    void CopyList() const;

    CheckOperations operations_;
    Path appPath_;
    CheckReport report_;
    bool isRunning_ = false;
    bool isClosing_ = false;
    QLabel* told_;
    QTreeWidget* list_;
    QProgressBar* progress_;
    QPushButton* repair_;
    QPushButton* again_;
    QPushButton* stop_;
    QPushButton* copy_;
    QTimer* timer_;
};

}  // namespace brantlow
