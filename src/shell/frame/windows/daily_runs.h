// The daily run of a window that is open: the clock is looked at while nothing else is done, the run is
// started in its minute without a question to anybody, and copies of the program that the system starts for
// it get its status.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>

#include "acquire/schedule/update_schedule.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/frame/windows/scheduled_handover.h"
#include "shell/run_report.h"

namespace brantlow {

class DailyRuns final {
  public:
    // `frame` outlives this; `run` does the run of the day and tells it.
    DailyRuns(const FrameHands& frame, std::function<RunReport()> run)
        : frame_(frame), run_(std::move(run)) {}

    // Looks at the clock about once a second, and listens for copies, from now on. Once.
    void StartClock();
    // One look at the clock: starts the run in its minute. Not in the midst of another run or of a question:
    // then the look comes when that is over, and the minute that passed meanwhile is made up.
    void WaitForDailyRun();

  private:
    void Run();
    // Nothing while the run of today is still to come.
    std::optional<int> StatusOfToday();

    const FrameHands& frame_;
    std::function<RunReport()> run_;
    DailyRun today_;
    // Gone with the window.
    QPointer<HandoverServer> copies_;
    int lastStatus_ = 0;
};

}  // namespace brantlow
