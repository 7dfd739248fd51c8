// The control word of long runs. A run polls it at each ticker; the buttons of frmEnable, or a signal at the
// terminal, write it.
//
// A run begins with BeginRun and asks ShouldStop before each ticker. While a run is paused the word is empty
// and the run stands in a loop of Person::PumpEvents: there a window frees the main frame and keeps frmEnable
// in front, since only its buttons lead out of the loop.
#pragma once

#include <cstddef>
#include <string>

#include "shell/person.h"

namespace brantlow {

inline constexpr const char* kStopRun = "True";
inline constexpr const char* kRunning = "False";
inline constexpr const char* kPauseRun = "Pause";
inline constexpr const char* kResumeRun = "Resume";

// What becomes of the work of a run that is stopped.
enum class RunStop : unsigned char { KeepsWhatIsDone, TakesAllBack };

struct RunControl {
    // "True" stop, "False" running, "Pause", "Resume"; empty while paused and before the first run.
    std::string ProcessCommand;
    // Share of the current run that is done, 0 to 1.
    double ProgressFraction = 0;
    // Value of the progress bar, 0 to 100, at the last repaint.
    double ProgressLastShown = 0;
    // Row of the table that is in work, 0 before the first.
    std::size_t CurrentRow = 0;
    // The row that a window keeps on top, so that the eye follows the run; 0 leaves the table where it is.
    std::size_t TopRow = 0;
};

// The word "False", and nothing done yet.
void BeginRun(RunControl& run);

// "Pause": empties the word and pumps events until a button writes another; a second "Pause" meanwhile
// changes nothing. "Resume", pressed now or to end the pause: the word is "False" again. Any other word
// stands.
void HandlePauseResume(RunControl& run, Person& person);

// The poll at each ticker: acts on a pause, then true when the run has to stop.
bool ShouldStop(RunControl& run, Person& person);

// What the progress bar has to do for a new ProgressFraction.
struct ProgressStep {
    double value = 0;      // 0 to 100
    bool visible = false;  // the bar hides once the run is done
    bool repaint = false;  // at most about fifty times a run
};

// The bar's next step; remembers the value when it asks for a repaint. A fraction outside 0 to 1 counts as
// the nearer end.
ProgressStep NextProgress(RunControl& run);

}  // namespace brantlow
