#include "acquire/feeds/archives/bundle_reading.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace brantlow {

namespace {

// An archive with more of them is not worth its reading: each makes it be opened anew.
constexpr std::size_t kMostDamagedEntries = 100;
constexpr std::size_t kMostHelpers = kReadAhead / 2 - 1;
// A thread pays from here on.
constexpr std::size_t kFilesOfThread = 16;

// A file of a folder is waited for at the disk, with the processor free for another one; of an archive, which
// is a third as large, each further thread walks over all its entries.
std::size_t HelpersFor(const BundleList& list, std::size_t files, std::size_t wish) {
    if (wish != kHelpersOfMachine) return std::min(wish, kMostHelpers);
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    const std::size_t threads = list.folder.empty() ? processors : 2 * processors;
    return std::min({threads - 1, kMostHelpers, files / kFilesOfThread});
}

class SharedReading {
  public:
    SharedReading(const Path& from, const BundleList& list, const BundleReading& reading,
                  const BundleLimits& limits)
        : from_(from), list_(list), reading_(reading), limits_(limits) {
        for (std::size_t place = 0; place < list.entries.size(); ++place) {
            if (reading.wants(list.entries[place])) wanted_.push_back(place);
        }
    }

    Failure Run() {
        const std::size_t helpers = HelpersFor(list_, wanted_.size(), reading_.helpers);
        for (std::size_t i = 0; i < helpers; ++i) helpers_.emplace_back([this] { Help(); });
        Failure fault = TakeAll();
        {
            const std::lock_guard lock(mutex_);
            isOver_ = true;
        }
        changed_.notify_all();
        for (std::thread& helper : helpers_) helper.join();
        return fault;
    }

  private:
    struct Slot {
        bool isReady = false;
        Failure fault;
        std::size_t bytes = 0;
        bool isBroken = false;
    };

    bool IsWorkLeft() const { return next_ < wanted_.size() && next_ < taken_ + kReadAhead; }

    // Works on the next file that nobody has.
    void WorkOnOne(BundleReader& reader, std::unique_lock<std::mutex>& lock) {
        const std::size_t index = next_++;
        lock.unlock();
        const std::size_t number = index % kReadAhead;
        const BundleEntry& entry = list_.entries[wanted_[index]];
        Slot slot;
        const BundleText text = reader.Read(wanted_[index], slot.fault);
        slot.bytes = text.bytes.size();
        slot.isBroken = text.isBroken;
        if (!slot.fault) reading_.work(number, entry, text);
        slot.isReady = true;
        lock.lock();
        slots_[number] = std::move(slot);
        changed_.notify_all();
    }

    void Help() {
        BundleReader reader(from_, list_, limits_);
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return isOver_ || IsWorkLeft() || next_ == wanted_.size(); });
            if (isOver_ || next_ == wanted_.size()) return;
            WorkOnOne(reader, lock);
        }
    }

    // The caller's thread works too where it would have to wait.
    Slot WaitFor(std::size_t index, BundleReader& reader) {
        std::unique_lock lock(mutex_);
        Slot& slot = slots_[index % kReadAhead];
        while (!slot.isReady) {
            if (IsWorkLeft()) {
                WorkOnOne(reader, lock);
            } else {
                changed_.wait(lock, [&] { return slot.isReady; });
            }
        }
        slot.isReady = false;
        return std::move(slot);
    }

    Failure TakeAll() {
        BundleReader reader(from_, list_, limits_);
        std::uintmax_t read = 0;
        std::size_t damaged = 0;
        for (std::size_t i = 0; i < wanted_.size(); ++i) {
            const Slot slot = WaitFor(i, reader);
            if (slot.fault) return slot.fault;
            if ((read += slot.bytes) > limits_.bytes) return TooMuch();
            if (!reading_.take(i % kReadAhead, list_.entries[wanted_[i]])) break;
            if (slot.isBroken && ++damaged > kMostDamagedEntries) {
                return BundleRefusal(from_, "too many of its entries are damaged");
            }
            const std::lock_guard lock(mutex_);
            taken_ = i + 1;
            changed_.notify_all();
        }
        return {};
    }

    Failure TooMuch() const {
        constexpr std::uintmax_t kGigabyte = std::uintmax_t{1024} * 1024 * 1024;
        return BundleRefusal(from_,
                             "unpacks to more than " + std::to_string(limits_.bytes / kGigabyte) + " GB");
    }

    const Path& from_;
    const BundleList& list_;
    const BundleReading& reading_;
    const BundleLimits& limits_;
    std::vector<std::size_t> wanted_;  // places in the list
    std::vector<std::thread> helpers_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::array<Slot, kReadAhead> slots_;
    std::size_t next_ = 0;   // of the wanted ones: the first that nobody works on
    std::size_t taken_ = 0;  // and the first that was not taken
    bool isOver_ = false;
};

}  // namespace

Failure ReadBundle(const Path& from, const BundleList& list, const BundleReading& reading,
                   const BundleLimits& limits) {
    return list.fault ? list.fault : SharedReading(from, list, reading, limits).Run();
}

}  // namespace brantlow
