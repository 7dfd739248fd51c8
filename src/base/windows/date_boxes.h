// Days between the engine and the toolkit's boxes.
#pragma once

#include <QDate>

#include "base/dates.h"

namespace brantlow {

inline QDate Shown(const Date& date) {
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

inline Date DateOf(const QDate& date) {
    return {std::chrono::year{date.year()}, std::chrono::month{static_cast<unsigned>(date.month())},
            std::chrono::day{static_cast<unsigned>(date.day())}};
}

}  // namespace brantlow
