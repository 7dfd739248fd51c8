// The alerts that were asked for by mail. The practice market sends no mail: it keeps the requests and shows
// them. Requests come in on several threads.
#pragma once

#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace brantlow {

struct StockAlert {
    std::string address;
    std::string ticker;

    bool operator==(const StockAlert&) const = default;
};

class AlertList {
  public:
    // Keeps the newest thousand.
    void Add(StockAlert alert);
    // Oldest first.
    std::vector<StockAlert> All() const;

  private:
    mutable std::mutex mutex_;
    std::deque<StockAlert> alerts_;
};

}  // namespace brantlow
