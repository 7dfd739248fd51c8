#include "base/flush_ahead.h"

#include <atomic>
#include <thread>

#include "base/file_calls.h"

namespace brantlow {

struct FlushAhead::Work {
    std::thread thread;
    std::atomic<bool> isUnderWay = false;
    std::error_code error;  // of the thread's, while it is under way
};

FlushAhead::FlushAhead() : work_(std::make_unique<Work>()) {}
FlushAhead::~FlushAhead() {
    Finish();
}

void FlushAhead::Begin(const Path& folder) {
    Work& work = *work_;
    if (work.isUnderWay || Finish()) return;
    work.isUnderWay = true;
    try {
        work.thread = std::thread([&work, folder] {
            work.error = SyncFileSystem(folder);
            work.isUnderWay = false;
        });
    } catch (const std::system_error&) {
        // No thread to be had: the flush at the end does it all.
        work.isUnderWay = false;
    }
}

std::error_code FlushAhead::Finish() {
    if (work_->thread.joinable()) work_->thread.join();
    return work_->error;
}

}  // namespace brantlow
