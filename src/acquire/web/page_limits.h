// How much a page may cost to be read.
#pragma once

#include <cstddef>

namespace brantlow {

struct PageLimits {
    // What stands behind these bytes is not read.
    std::size_t inputBytes = std::size_t{8} * 1024 * 1024;
    std::size_t memoryBytes = std::size_t{96} * 1024 * 1024;
    // Of the reading thread's own processor time.
    double seconds = 3;
};

}  // namespace brantlow
