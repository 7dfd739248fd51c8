// How long a walk over tickers will still take, in words for the status bar: "3 min left", "25 s left".
#pragma once

#include <string>

#include "base/clock.h"

namespace brantlow {

class RemainingTime {
  public:
    // Begins now. `clock` outlives this.
    explicit RemainingTime(const Clock& clock) : clock_(clock), begun_(clock.SecondsSinceMidnight()) {}

    // With this share, 0 to 1, done. Empty in the first seconds, from which nothing can be told, and when all
    // is done.
    std::string Words(double share) const;

    // Around a place where the walk may stand still: what passes meanwhile counts for nothing.
    void BeginPause() { paused_ = clock_.SecondsSinceMidnight(); }
    void EndPause();

  private:
    double Since(double seconds) const;

    const Clock& clock_;
    double begun_;
    double paused_ = 0;
    double pauses_ = 0;
};

}  // namespace brantlow
