// Sorting a table by one of its columns, as the window and the adding of a ticker do.
#pragma once

#include <cstddef>

#include "store/quote_table.h"

namespace brantlow {

enum class SortOrder { Ascending, Descending };

// Sorts the rows below the header. Columns whose header ends in "Date" go by the calendar, cells that are
// numbers by their values and before all text, the rest by text; empty cells come first. Rows with equal
// cells keep their order. Colours move with their rows. A column outside the table changes nothing.
void SortTable(QuoteTable& table, std::size_t column, SortOrder order);

}  // namespace brantlow
