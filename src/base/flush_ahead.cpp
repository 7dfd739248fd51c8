#include "base/flush_ahead.h"

#include "base/file_calls.h"

namespace brantlow {

void FlushAhead::Begin(const Path& folder) {
    if (isUnderWay_ || Finish()) return;
    isUnderWay_ = true;
    try {
        thread_ = std::thread([this, folder] {
            error_ = SyncFileSystem(folder);
            isUnderWay_ = false;
        });
    } catch (const std::system_error&) {
        // No thread to be had: the flush at the end does it all.
        isUnderWay_ = false;
    }
}

std::error_code FlushAhead::Finish() {
    if (thread_.joinable()) thread_.join();
    return error_;
}

}  // namespace brantlow
