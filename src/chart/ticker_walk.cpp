#include "chart/ticker_walk.h"

#include <algorithm>
#include <string>

#include "shell/settings/condition_set.h"

namespace brantlow {

namespace {

bool HasHit(const QuoteTable& table, std::size_t column) {
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (!table.Text(row, column).empty()) return true;
    }
    return false;
}

}  // namespace

std::vector<HitColumn> HitColumnsOf(const QuoteTable& table) {
    std::vector<HitColumn> found;
    for (std::size_t condition = 1; condition <= kConditionCount; ++condition) {
        const auto column = table.ColumnOf("Condition " + std::to_string(condition));
        if (column && HasHit(table, *column)) found.push_back({condition, *column});
    }
    return found;
}

std::optional<std::size_t> NextRow(const QuoteTable& table, std::size_t row, bool downwards,
                                   std::size_t column) {
    const std::size_t last = table.TickerCount();
    const std::size_t start = row == 0 && !downwards ? last + 1 : std::min(row, last + 1);
    for (std::size_t steps = 1; downwards ? start + steps <= last : steps < start; ++steps) {
        const std::size_t next = downwards ? start + steps : start - steps;
        const bool isHit = column == kEveryRow || !table.Text(next, column).empty();
        if (isHit && !table.Ticker(next).empty()) return next;
    }
    return std::nullopt;
}

}  // namespace brantlow
