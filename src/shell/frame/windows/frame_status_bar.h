// The status bar of the main frame: the day, then the line of the run that was last, the rows of the open
// table, the progress of a run, its status word and the ticker count.
#pragma once

#include <QString>
#include <memory>
#include <string>

#include "shell/frame/windows/window_person.h"
#include "shell/run_report.h"
#include "shell/session.h"

class QMainWindow;
class QStatusBar;

namespace brantlow {

class ElidedLabel;
class ToldRuns;

class FrameStatusBar final {
  public:
    // Fills the status bar of `window`. Both outlive this.
    FrameStatusBar(QMainWindow& window, const Session& session);
    ~FrameStatusBar();

    // The parts in which the person at the windows shows what the engine tells.
    const FrameParts& Parts() const { return parts_; }

    // A line for a while, in the place of the day and beside the rows.
    void Notice(const std::string& text);
    // How many rows the open table has, and what a column adds up to.
    void ShowRows(const std::string& line);
    // Shows what a run did in the first field, and keeps the list of its tickers. A run that has no tickers
    // leaves the list of the one before; a report that is nobody's shows nothing.
    void Tell(const RunReport& report);
    void HideProgress();

  private:
    void AddDay(QMainWindow& window);
    void AddProgress();
    void AddRows();
    void AddNotice();

    const Session& session_;
    QStatusBar& bar_;
    FrameParts parts_;
    ElidedLabel* rows_ = nullptr;
    std::unique_ptr<ToldRuns> told_;
    // The newest line of Notice.
    QString notice_;
};

}  // namespace brantlow
