// A table's row on its way back into the quote arrays: what a source does not send is taken from the cells.
#pragma once

#include <cstddef>

#include "store/quote_rows.h"

namespace brantlow {

// Takes the row's cells into the arrays, for whose row room was made, in the place of what they held; columns
// that the arrays do not hold are passed over.
void ReadRow(const QuoteTable& table, std::size_t row, QuoteArrays& rows);

}  // namespace brantlow
