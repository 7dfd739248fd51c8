// A list worked on ahead: threads make the items of the next places while the caller takes them one after
// another in their order. The runs over all tickers of a table take it.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace brantlow {

// As many threads as the machine has processors, none for a short list.
inline constexpr std::size_t kThreadsOfMachine = static_cast<std::size_t>(-1);

// How many threads help the caller's own with a list: `wished`, or as kThreadsOfMachine says.
std::size_t HelpersBeside(std::size_t wished, std::size_t count);

template <class Item>
class AheadOfTurn {
  public:
    // Makes the item of a place of the list in an Item that an earlier place may have used. It is called on
    // any thread, for several places at once.
    using Make = std::function<void(std::size_t place, Item& item)>;

    AheadOfTurn(std::size_t count, std::size_t helpers, Make make) : count_(count), make_(std::move(make)) {
        const std::size_t threads = HelpersBeside(helpers, count);
        ring_ = std::vector<Held>((threads + 1) * kPlacesPerThread);
        for (std::size_t i = 0; i < threads; ++i) helpers_.emplace_back([this] { HelpAlong(); });
    }
    // Stops the threads wherever they are.
    ~AheadOfTurn() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            stopping_ = true;
        }
        room_.notify_all();
        for (std::thread& helper : helpers_) helper.join();
    }
    AheadOfTurn(const AheadOfTurn&) = delete;
    AheadOfTurn& operator=(const AheadOfTurn&) = delete;

    // The place that Await gives.
    std::size_t Next() const { return next_; }
    bool IsDone() const { return next_ == count_; }

    // The item of the next place, which there has to be; it stands until Advance. The caller's thread makes
    // items itself rather than wait for one.
    Item& Await() {
        std::unique_lock<std::mutex> lock(mutex_);
        while (!PlaceOf(next_).ready) {
            if (IsWorkLeft()) {
                MakeOne(lock);
            } else {
                ready_.wait(lock);
            }
        }
        return PlaceOf(next_).item;
    }
    // Goes on to the next place.
    void Advance() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            PlaceOf(next_).ready = false;
            ++next_;
        }
        room_.notify_one();
    }

  private:
    // Enough that no thread waits for a slow item, few enough to stay in the caches.
    static constexpr std::size_t kPlacesPerThread = 4;
    struct Held {
        Item item;
        bool ready = false;
    };

    Held& PlaceOf(std::size_t place) { return ring_[place % ring_.size()]; }
    bool IsWorkLeft() const { return claimed_ < std::min(count_, next_ + ring_.size()); }

    void MakeOne(std::unique_lock<std::mutex>& lock) {
        const std::size_t place = claimed_++;
        Held& held = PlaceOf(place);
        lock.unlock();
        make_(place, held.item);
        lock.lock();
        held.ready = true;
        ready_.notify_one();
    }

    void HelpAlong() {
        std::unique_lock<std::mutex> lock(mutex_);
        for (;;) {
            room_.wait(lock, [this] { return stopping_ || claimed_ == count_ || IsWorkLeft(); });
            if (stopping_ || claimed_ == count_) return;
            MakeOne(lock);
        }
    }

    const std::size_t count_;
    const Make make_;
    std::mutex mutex_;
    std::condition_variable room_;   // a place came free, or the run ends
    std::condition_variable ready_;  // an item is made
    std::vector<Held> ring_;
    std::size_t next_ = 0;     // the place that the caller takes next
    std::size_t claimed_ = 0;  // items before this place are being made or are made
    bool stopping_ = false;
    std::vector<std::thread> helpers_;
};

}  // namespace brantlow
