// The updates of the main frame: the end-of-day update by hand and at its minute.
#include <QApplication>
#include <QTimer>

#include "daily/daily_update.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/window_person.h"
#include "splits/windows/frmAdjustSplits.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// The daily run looks at the clock no less often than this.
constexpr int kClockMilliseconds = 1000;

// The first thing that could not be written, as a sentence; empty when everything could.
std::string FailureOf(const DailyUpdate& update, const std::string& name) {
    const auto sentence = [](std::string_view what, const std::error_code& error) {
        return std::string(what) + " cannot be written (" + error.message() + ")";
    };
    if (update.quotes.error) return sentence("Import.Txt", update.quotes.error);
    if (update.database && update.database->error) return sentence("The database", update.database->error);
    if (update.splits && update.splits->error) return sentence("The database", update.splits->error);
    if (update.saveError) return sentence(name, update.saveError);
    return {};
}

}  // namespace

void frmMain::CmdUpdateQuotes() {
    if (!quoteForm_ || person_.InRun()) return;
    if (KindOf(session_.CurrentFile) != FileKind::Ddq) {
        person_.Say(kUpdateNeedsQuoteFile);
        return;
    }
    const std::string name = session_.CurrentFile;
    BeginTableRun();
    const DailyUpdate update = RunUpdate();
    if (!EndTableRun()) return;
    if (update.selectorFollows) StockSelector();
    const std::string failure = FailureOf(update, name);
    if (!failure.empty()) person_.Say(failure);
}

DailyUpdate frmMain::RunUpdate() {
    frmAdjustSplits splits(this);
    const auto showAdjustSplits = [&](bool shown) {
        splits.setEnabled(true);
        splits.setVisible(shown);
        person_.PumpEvents();
    };
    const UpdateWork work{session_,
                          quoteForm_->Table(),
                          web_,
                          hosts_,
                          updates_.rows,
                          updates_.alerted,
                          updates_.memoryInfo,
                          showAdjustSplits};
    return RunDailyUpdate(work, days_, analysis_.series);
}

void frmMain::StartClock() {
    auto* clock = new QTimer(this);
    clock->setObjectName(QStringLiteral("tmrDailyRun"));
    clock->setTimerType(Qt::PreciseTimer);
    connect(clock, &QTimer::timeout, this, &frmMain::WaitForDailyRun);
    clock->start(kClockMilliseconds);
}

// Not in the midst of a run or of a question: the look at the clock comes when it is over.
void frmMain::WaitForDailyRun() {
    if (person_.InRun() || QApplication::activeModalWidget() || QApplication::activePopupWidget()) return;
    if (!updates_.dailyRun.Poll(session_.settings, session_.clock)) return;
    if (KindOf(session_.CurrentFile) == FileKind::Ddq) CmdUpdateQuotes();
}

}  // namespace brantlow
