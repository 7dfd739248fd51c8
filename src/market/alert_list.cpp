#include "market/alert_list.h"

#include <utility>

namespace brantlow {

void AlertList::Add(StockAlert alert) {
    constexpr std::size_t kMostAlerts = 1000;
    const std::lock_guard lock(mutex_);
    alerts_.push_back(std::move(alert));
    if (alerts_.size() > kMostAlerts) alerts_.pop_front();
}

std::vector<StockAlert> AlertList::All() const {
    const std::lock_guard lock(mutex_);
    return {alerts_.begin(), alerts_.end()};
}

}  // namespace brantlow
