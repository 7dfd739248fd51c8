// The daily run of a window that is open: the clock is looked at while nothing else is done, the run is
// started in its minute without a question to anybody, and copies of the program that the system starts for
// it get its status.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>
#include <string_view>

#include "acquire/schedule/update_schedule.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/frame/windows/scheduled_handover.h"
#include "shell/run_report.h"

namespace brantlow {

// How long the copies wait for a run that a dialog or another run holds up, and what they end with then.
inline constexpr double kHeldUpSeconds = 3600;
inline constexpr std::string_view kRunIsHeldUp =
    "Nothing was updated: Brantlow is open, and for an hour a dialog has been open in it or another run at "
    "work. The update begins when that is over.";

class DailyRuns final {
  public:
    // `frame` outlives this; `run` does the run of the day and tells it.
    DailyRuns(const FrameHands& frame, std::function<RunReport()> run)
        : frame_(frame), run_(std::move(run)) {}

    // Looks at the clock about once a second, and listens for copies, from now on. Once.
    void StartClock();
    // One look at the clock: starts the run in its minute. Not in the midst of another run or of a question:
    // then the look comes when that is over, and the minute that passed meanwhile is made up; copies that
    // have waited kHeldUpSeconds for that end with 1 and kRunIsHeldUp.
    void WaitForDailyRun();

    // Whether a copy waits for a run.
    bool HasWaitingCopies() const { return copies_ && copies_->HasWaiting(); }

  private:
    void Run();
    // A look at the clock at which no run could begin.
    void KeepCopiesWaiting();
    // Nothing while the run of today is still to come.
    std::optional<int> StatusOfToday();

    const FrameHands& frame_;
    std::function<RunReport()> run_;
    DailyRun today_;
    // Gone with the window.
    QPointer<HandoverServer> copies_;
    int lastStatus_ = 0;
    // The first look at which the run of a waiting copy was due and held up.
    std::optional<Moment> heldUpSince_;
};

}  // namespace brantlow
