// What a long run says of itself while it works: what it does, how far it is, how long it still takes.
#pragma once

#include <optional>
#include <string>

namespace brantlow {

struct RunSight {
    std::string what;     // the status word
    std::string ticker;   // in work; may be empty
    double fraction = 0;  // done, 0 to 1
    double seconds = 0;   // that it has worked
};

// How long a run has worked: the time in which it stands still does not count. Instants are the milliseconds
// of any clock that is never set back.
class RunClock {
  public:
    void Begin(long long now);
    // A second one behind the first changes nothing, and neither does a GoOn of a run that works.
    void StandStill(long long now);
    void GoOn(long long now);
    double Seconds(long long now) const;

  private:
    long long begun_ = 0;
    std::optional<long long> stoodStill_;
};

// "Updating AAPL: 40 % done, about 3 minutes left". The time is left out until enough is done to tell it.
std::string RunOutlook(const RunSight& sight);

// What is said from the press of Pause until the run stands still: the ticker in work is finished first.
std::string PausingSentence(const std::string& ticker);
// The same from the press of Exit until the run has ended.
std::string EndingSentence(const std::string& ticker);

}  // namespace brantlow
