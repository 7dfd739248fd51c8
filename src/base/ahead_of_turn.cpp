#include "base/ahead_of_turn.h"

namespace brantlow {

namespace {

// A short list is done before threads have started.
constexpr std::size_t kShortList = 16;
constexpr std::size_t kMostThreads = 8;

}  // namespace

std::size_t HelpersBeside(std::size_t wished, std::size_t count) {
    if (wished != kThreadsOfMachine) return wished;
    if (count < kShortList) return 0;
    const std::size_t processors = std::max<std::size_t>(std::thread::hardware_concurrency(), 1);
    return std::min(processors, kMostThreads) - 1;
}

}  // namespace brantlow
