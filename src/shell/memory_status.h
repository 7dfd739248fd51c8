// The low-memory watch of long runs: main memory and swap space together stand for the page file. A run looks
// after each ticker and stops before the machine has nothing left.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "shell/person.h"
#include "shell/run_control.h"

namespace brantlow {

// Below this share of free page file, in percent, a run stops.
inline constexpr double kLowMemoryPercent = 5.5;

inline constexpr std::string_view kLowMemoryTitle = "Memory Monitor";
inline constexpr std::string_view kLowMemoryHeading = "Low Memory Warning";
inline constexpr std::string_view kLowMemoryText =
    "You are experiencing low memory, and you will need to restart Brantlow. Before restarting, you will "
    "need "
    "to save your work.";
inline constexpr std::string_view kLowMemoryAdvice =
    "To prevent this issue from reocurring, you may simply increase the size of your virtual memory, or "
    "decrease the quote file size. As a last resort, you can install additional RAM.";

// Kilobytes, as the system counts them.
struct MemoryStatus {
    std::uint64_t totalPageFile = 0;
    std::uint64_t availablePageFile = 0;
};

// Reads the text of /proc/meminfo. Nothing when a figure of main memory is missing or unreadable, or the
// total is 0; missing swap figures count as no swap space.
std::optional<MemoryStatus> ParseMemoryStatus(std::string_view meminfo);

// The text of a file whose figures the system adds up for each reader; empty where there is none.
class MemoryLook {
  public:
    using TimePoint = std::chrono::steady_clock::time_point;
    // A look is as good as new for so long.
    static constexpr std::chrono::milliseconds kFresh{10};

    explicit MemoryLook(Path file) : file_(std::move(file)) {}
    const std::string& At(TimePoint now);

  private:
    Path file_;
    TimePoint when_;
    std::string text_;
};

// The look at /proc/meminfo of this thread.
std::string ReadMemoryInfo();

double PercentAvailable(const MemoryStatus& status);

// The look after a ticker: below kLowMemoryPercent it warns and writes the stop word, so that the run ends at
// its next poll. Figures that cannot be read stop nothing.
void WatchMemory(std::string_view meminfo, RunControl& run, Person& person);

}  // namespace brantlow
