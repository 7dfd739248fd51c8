// The passing of time as the web's waits see it. Tests hand in one whose sleep is instant.
#pragma once

#include <functional>

namespace brantlow {

struct WebTime {
    // Seconds since some fixed moment; never goes back.
    std::function<double()> now;
    std::function<void(double seconds)> sleep;
};

WebTime SystemWebTime();

}  // namespace brantlow
