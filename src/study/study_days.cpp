#include "study/study_days.h"

#include <algorithm>

namespace brantlow {

std::uint32_t DayWritings::Of(const Date& date, std::string_view text) {
    constexpr std::size_t kShortForm = 8;
    const bool plain = text.size() == kShortForm && text[2] == '/' && text[5] == '/';
    if (plain || text == FormatDate(date)) return 0;
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = std::find(others_.begin(), others_.end(), text);
    if (found == others_.end()) {
        others_.emplace_back(text);
        return static_cast<std::uint32_t>(others_.size());
    }
    return static_cast<std::uint32_t>(found - others_.begin()) + 1;
}

}  // namespace brantlow
