// What a table shows beside its cells: large numbers with separators, the rows as text to be pasted or kept,
// and the line that counts rows and adds up a column. None of it changes a file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/quote_table.h"

namespace brantlow {

// Whether a column's numbers are shown with separators: volume, and amounts such as market value.
bool ShowsSeparators(std::string_view header);

// "1234567.5" as "1,234,567.5". A text that is no plain number stays as it is.
std::string WithSeparators(std::string_view number);

// The header and these rows (1 the first), of these columns, as lines that end in CR LF. Tabs stand between
// the cells for a spreadsheet's clipboard; with commas a cell that holds one, a quote or a line end stands in
// quotes.
enum class CellsBetween { Tabs, Commas };
std::string RowsText(const QuoteTable& table, std::span<const std::size_t> rows,
                     std::span<const std::size_t> columns, CellsBetween between);

// The columns that are shown, in their order.
std::vector<std::size_t> ShownColumns(const QuoteTable& table);

// What the status bar says of the rows: how many there are, how many a filter shows and how many are
// selected, and of a column of numbers the sum and the mean over `counted`.
struct RowCounts {
    std::size_t all = 0;
    std::size_t shown = 0;
    std::size_t selected = 0;
};
std::string RowsLine(const RowCounts& counts, const QuoteTable& table, std::span<const std::size_t> counted,
                     std::size_t column);

}  // namespace brantlow
