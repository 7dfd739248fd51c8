// A row of a table as its line of the file.
#pragma once

#include <string>

#include "store/quote_table.h"

namespace brantlow {

inline std::string LineText(const QuoteTable& table, std::size_t row) {
    std::string line;
    table.AppendLineText(row, line);
    return line;
}

}  // namespace brantlow
