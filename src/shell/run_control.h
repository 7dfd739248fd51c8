// The control word of long runs. A run polls it at each ticker; the buttons of frmEnable, or a signal at the
// terminal, write it.
#pragma once

#include <string>

namespace brantlow {

inline constexpr const char* kStopRun = "True";
inline constexpr const char* kRunning = "False";
inline constexpr const char* kPauseRun = "Pause";
inline constexpr const char* kResumeRun = "Resume";

struct RunControl {
    // "True" stop, "False" running, "Pause", "Resume"; empty while paused and before the first run.
    std::string ProcessCommand;
    // Share of the current run that is done, 0 to 1.
    double ProgressFraction = 0;
};

}  // namespace brantlow
