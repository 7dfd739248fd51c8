#include "shell/frame/windows/frame_status_bar.h"

#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QProgressBar>
#include <QStatusBar>
#include <algorithm>

#include "base/failure.h"
#include "base/windows/colours.h"
#include "base/windows/date_boxes.h"
#include "base/windows/display_text.h"
#include "base/windows/elided_label.h"
#include "shell/frame/windows/told_runs.h"

namespace brantlow {

namespace {

constexpr int kWordPanelWidth = 130;
constexpr int kCountPanelWidth = 80;
constexpr int kProgressWidth = 180;
constexpr int kPercent = 100;
constexpr int kNoticeMilliseconds = 8000;
constexpr int kRowsLetters = 24;

QLabel* AddPanel(QStatusBar& bar, const QString& name, const QString& toolTip, int width) {
    auto* panel = new QLabel;
    panel->setObjectName(name);
    panel->setToolTip(toolTip);
    panel->setMinimumWidth(width);
    panel->setAlignment(Qt::AlignCenter);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    bar.addPermanentWidget(panel);
    return panel;
}

}  // namespace

FrameStatusBar::FrameStatusBar(QMainWindow& window, const Session& session)
    : session_(session), bar_(*window.statusBar()) {
    bar_.setObjectName(QStringLiteral("sbStatusBar"));
    parts_.window = &window;
    AddDay(window);
    AddProgress();
    parts_.statusWord = AddPanel(bar_, QStringLiteral("Panel2"), QStringLiteral("What the program is doing"),
                                 kWordPanelWidth);
    parts_.tickerCount = AddPanel(bar_, QStringLiteral("Panel3"), QStringLiteral("Tickers in the open file"),
                                  kCountPanelWidth);
    // There is none before a table is open.
    parts_.tickerCount->hide();
    AddRows();
    AddNotice();
    for (QWidget* part : bar_.findChildren<QWidget*>()) KeepColoursWhenDisabled(*part);
}

FrameStatusBar::~FrameStatusBar() = default;

void FrameStatusBar::AddDay(QMainWindow& window) {
    auto* field = new ElidedLabel;
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    field->setText(
        QLocale::c().toString(Shown(session_.clock.Today()), QStringLiteral(" dddd, MMMM d, yyyy")));
    field->setObjectName(QStringLiteral("Panel1"));
    // The day, or the line of a run, and the rows have the room that they need; where it is too small for
    // both each gives the same of it.
    bar_.addWidget(field);
    told_ = std::make_unique<ToldRuns>(*field, window);
}

void FrameStatusBar::AddProgress() {
    auto* bar = new QProgressBar;
    bar->setObjectName(QStringLiteral("ProgressBar1"));
    bar->setRange(0, kPercent);
    bar->setFixedWidth(kProgressWidth);
    bar->setTextVisible(false);
    bar->hide();
    bar_.addPermanentWidget(bar);
    parts_.progressBar = bar;
}

void FrameStatusBar::AddRows() {
    rows_ = new ElidedLabel;
    rows_->setObjectName(QStringLiteral("Panel4"));
    rows_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Behind the day, which stands at 0.
    bar_.insertPermanentWidget(1, rows_);
}

// What the bar writes itself ends without dots where its permanent parts begin, and has no tip. A permanent
// part in the place of the day, which is hidden meanwhile, shares its room with the rows as the day does.
void FrameStatusBar::AddNotice() {
    auto* notice = new ElidedLabel;
    notice->setObjectName(QStringLiteral("lblNotice"));
    notice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    // As far in as the day, which stands behind a blank.
    notice->setContentsMargins(notice->fontMetrics().horizontalAdvance(u' '), 0, 0, 0);
    notice->hide();
    bar_.insertPermanentWidget(1, notice, 1);
    QObject::connect(&bar_, &QStatusBar::messageChanged, notice, [notice](const QString& message) {
        notice->ShowLine(message);
        notice->setVisible(!message.isEmpty());
    });
}

void FrameStatusBar::Notice(const std::string& text) {
    notice_ = Shown(text);
    bar_.showMessage(notice_, kNoticeMilliseconds);
}

void FrameStatusBar::ShowRows(const std::string& line) {
    rows_->ShowLine(Shown(line));
    // How many rows there are stands in front and is read beside any other line; the sums may end with dots.
    rows_->setMinimumWidth(
        std::min(rows_->sizeHint().width(), rows_->fontMetrics().averageCharWidth() * kRowsLetters));
}

void FrameStatusBar::Tell(const RunReport& report) {
    if (report.What().empty()) return;
    told_->Tell(report);
    // The tip of the entry that began the run: no mouse leaves an entry that is shut.
    if (bar_.currentMessage() != notice_) bar_.clearMessage();
    if (report.Tickers().empty()) return;
    const std::error_code error = KeepLastRun(session_.DataFolder(), report, session_.clock);
    if (error) session_.person.Say(CannotBeSaved(kLastRunName, error));
}

void FrameStatusBar::HideProgress() {
    parts_.progressBar->hide();
}

}  // namespace brantlow
