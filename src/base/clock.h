// The clock behind an interface, so that any run can be repeated on a chosen day.
#pragma once

#include "base/dates.h"

namespace brantlow {

class Clock {
  public:
    virtual ~Clock() = default;
    // The local calendar day.
    virtual Date Today() const = 0;
    // Local seconds since midnight, 0 up to 86,400, with fractions.
    virtual double SecondsSinceMidnight() const = 0;
};

class SystemClock final : public Clock {
  public:
    Date Today() const override;
    double SecondsSinceMidnight() const override;
};

// Stands still until it is set.
class FixedClock final : public Clock {
  public:
    explicit FixedClock(const Date& today, double secondsSinceMidnight = 0)
        : today_(today), seconds_(secondsSinceMidnight) {}
    Date Today() const override { return today_; }
    double SecondsSinceMidnight() const override { return seconds_; }
    void Set(const Date& today, double secondsSinceMidnight) {
        today_ = today;
        seconds_ = secondsSinceMidnight;
    }

  private:
    Date today_;
    double seconds_;
};

}  // namespace brantlow
