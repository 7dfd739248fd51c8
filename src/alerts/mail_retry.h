// When a mail that a server put off is tried again while the program is open: soon at first, then ever more
// seldom, and at the end not any more; the next update takes its alarms along.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/clock.h"

namespace brantlow {

class MailRetry {
  public:
    // A mail was put off just now: the waits begin anew.
    void Begin(const Clock& clock);
    // A further try was put off too.
    void PutOff(const Clock& clock);
    void End() { next_.reset(); }

    bool IsWaiting() const { return next_.has_value(); }
    bool IsDue(const Clock& clock) const;
    // "18:35", when the next try is made; empty where none is.
    std::string NextText() const;

  private:
    void WaitFrom(const Clock& clock);

    std::size_t waits_ = 0;
    std::optional<double> next_;  // seconds since the first day of the calendar
};

}  // namespace brantlow
