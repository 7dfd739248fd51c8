// The status bar's first field: the day until a run has told what it did, then the run's line. A click on the
// line opens the list of what became of each ticker.
#pragma once

#include <QObject>
#include <QString>

#include "shell/run_report.h"

class QLabel;
class QWidget;

namespace brantlow {

class ToldRuns final : public QObject {
  public:
    // `field` outlives this; `window` owns the list.
    ToldRuns(QLabel& field, QWidget& window);

    // Shows the line of a run that has come to its end.
    void Tell(const RunReport& report);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void OpenList();

    QLabel& field_;
    QWidget& window_;
    RunReport report_;
    bool hasTold_ = false;
};

}  // namespace brantlow
