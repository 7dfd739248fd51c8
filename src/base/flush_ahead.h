// Flushes a file system while a run still writes to it, so that the flush at the run's end finds little left.
#pragma once

#include <atomic>
#include <system_error>
#include <thread>

#include "base/files.h"

namespace brantlow {

class FlushAhead {
  public:
    FlushAhead() = default;
    ~FlushAhead() { Finish(); }
    FlushAhead(const FlushAhead&) = delete;
    FlushAhead& operator=(const FlushAhead&) = delete;

    // Begins to flush the file system of a folder, beside the caller. Nothing happens while an earlier flush
    // is under way, or once one has failed.
    void Begin(const Path& folder);
    // Waits for the flush under way. The failure of any so far: the system tells it of what it dropped once,
    // so that a flush that follows may know nothing of it.
    std::error_code Finish();

  private:
    std::thread thread_;
    std::atomic<bool> isUnderWay_ = false;
    std::error_code error_;  // of the thread's, while it is under way
};

}  // namespace brantlow
