#include "shell/frame/windows/told_runs.h"

#include <QLabel>
#include <QMouseEvent>

#include "base/windows/display_text.h"
#include "shell/frame/windows/frmLastRun.h"

namespace brantlow {

ToldRuns::ToldRuns(QLabel& field, QWidget& window) : field_(field), window_(window) {
    field_.installEventFilter(this);
}

void ToldRuns::Tell(const RunReport& report) {
    report_ = report;
    hasTold_ = true;
    field_.setText(QLatin1Char(' ') + Shown(report_.Line()));
    field_.setTextFormat(Qt::PlainText);
    field_.setToolTip(QStringLiteral("Click to see what became of each ticker"));
    field_.setCursor(Qt::PointingHandCursor);
}

bool ToldRuns::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &field_ || event->type() != QEvent::MouseButtonRelease || !hasTold_) return false;
    if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
    OpenList();
    return true;
}

void ToldRuns::OpenList() {
    auto* list = new frmLastRun(report_, &window_);
    list->setAttribute(Qt::WA_DeleteOnClose);
    list->show();
}

}  // namespace brantlow
