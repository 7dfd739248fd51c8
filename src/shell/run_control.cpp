#include "shell/run_control.h"

#include <algorithm>

namespace brantlow {

namespace {

constexpr double kFullBar = 100;
constexpr double kBarDone = 99.9;
constexpr double kRepaintStep = 2;

void WaitForButton(RunControl& run, Person& person) {
    while (run.ProcessCommand == kPauseRun) {
        run.ProcessCommand.clear();
        while (run.ProcessCommand.empty()) person.PumpEvents();
    }
}

}  // namespace

void BeginRun(RunControl& run) {
    run = RunControl{};
    run.ProcessCommand = kRunning;
}

void HandlePauseResume(RunControl& run, Person& person) {
    WaitForButton(run, person);
    if (run.ProcessCommand == kResumeRun) run.ProcessCommand = kRunning;
}

bool ShouldStop(RunControl& run, Person& person) {
    if (run.ProcessCommand != kRunning) HandlePauseResume(run, person);
    return run.ProcessCommand == kStopRun;
}

ProgressStep NextProgress(RunControl& run) {
    ProgressStep step;
    step.value = std::clamp(run.ProgressFraction, 0.0, 1.0) * kFullBar;
    step.visible = step.value < kBarDone;
    step.repaint = step.value > run.ProgressLastShown + kRepaintStep;
    if (step.repaint) run.ProgressLastShown = step.value;
    return step;
}

}  // namespace brantlow
