#include "shell/frame/windows/daily_runs.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include "shell/frame/windows/window_person.h"

namespace brantlow {

namespace {

// The daily run looks at the clock no less often than this.
constexpr int kLookMilliseconds = 1000;

// As the batch tool's exit status has it.
constexpr int kNothing = 1;

int StatusOf(RunExtent extent) {
    constexpr int kPartly = 3;
    if (extent == RunExtent::Whole) return 0;
    return extent == RunExtent::Partly ? kPartly : kNothing;
}

}  // namespace

void DailyRuns::StartClock() {
    auto* clock = new QTimer(&frame_.window);
    clock->setObjectName(QStringLiteral("tmrDailyRun"));
    clock->setTimerType(Qt::PreciseTimer);
    QObject::connect(clock, &QTimer::timeout, &frame_.window, [this] { WaitForDailyRun(); });
    clock->start(kLookMilliseconds);
    copies_ = new HandoverServer(
        frame_.session.AppPath, [this] { return StatusOfToday(); }, &frame_.window);
}

void DailyRuns::WaitForDailyRun() {
    if (frame_.person.InRun() || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return KeepCopiesWaiting();
    heldUpSince_.reset();
    if (today_.Poll(frame_.session.settings, frame_.session.clock)) Run();
}

void DailyRuns::KeepCopiesWaiting() {
    const Session& session = frame_.session;
    if (!HasWaitingCopies()) return heldUpSince_.reset();
    const Moment now = MomentOf(session.clock);
    if (!heldUpSince_ && today_.IsDue(session.settings, session.clock)) heldUpSince_ = now;
    if (!heldUpSince_) return;
    const double seconds = SecondsBetween(*heldUpSince_, now);
    // A clock that was set back begins the wait anew.
    if (seconds < 0) heldUpSince_ = now;
    if (seconds < kHeldUpSeconds) return;
    copies_->Done({kNothing, std::string(kRunIsHeldUp)});
    heldUpSince_.reset();
}

void DailyRuns::Run() {
    frame_.person.BeginUnattended();
    lastStatus_ = StatusOf(run_().Extent());
    const std::vector<std::string> unheard = frame_.person.EndUnattended();
    if (!unheard.empty()) frame_.notice(unheard.front());
    if (copies_) copies_->Done({lastStatus_});
}

std::optional<int> DailyRuns::StatusOfToday() {
    switch (today_.AskForToday(frame_.session.settings, frame_.session.clock)) {
        case DailyRun::Today::NotChosen:
            return 0;
        case DailyRun::Today::Over:
            // A run at work tells its copies at its end.
            if (!frame_.person.InRun()) return lastStatus_;
            break;
        case DailyRun::Today::Comes:
            break;
    }
    return std::nullopt;
}

}  // namespace brantlow
