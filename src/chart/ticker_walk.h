// The way of a chart from ticker to ticker: down and up the rows of the open table, or those of them that one
// of its conditions has hit.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "store/quote_table.h"

namespace brantlow {

// All rows.
inline constexpr std::size_t kEveryRow = 0;

// The columns of the conditions that have a hit in the table, 1 to 10, in the order of their numbers;
// `column` is their place in the table.
struct HitColumn {
    std::size_t condition = 0;
    std::size_t column = 0;
};
std::vector<HitColumn> HitColumnsOf(const QuoteTable& table);

// The next row after `row`, or the one before it, that holds a ticker and, where `column` is none of
// kEveryRow, a hit in that column. `row` 0 is before the first and behind the last. Nothing at the end.
std::optional<std::size_t> NextRow(const QuoteTable& table, std::size_t row, bool downwards,
                                   std::size_t column);

}  // namespace brantlow
