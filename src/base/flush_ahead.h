// Flushes a file system while a run still writes to it, so that the flush at the run's end finds little left.
#pragma once

#include <memory>
#include <system_error>

#include "base/files.h"

namespace brantlow {

class FlushAhead {
  public:
    FlushAhead();
    ~FlushAhead();
    FlushAhead(const FlushAhead&) = delete;
    FlushAhead& operator=(const FlushAhead&) = delete;

    // Begins to flush the file system of a folder, beside the caller. Nothing happens while an earlier flush
    // is under way, or once one has failed.
    void Begin(const Path& folder);
    // Waits for the flush under way. The failure of any so far: the system tells it of what it dropped once,
    // so that a flush that follows may know nothing of it.
    std::error_code Finish();

  private:
    // Every file that writes includes this one, and the library's threads cost a compiler more than all of
    // it.
    struct Work;
    std::unique_ptr<Work> work_;
};

}  // namespace brantlow
