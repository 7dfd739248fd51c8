#include "store/row_reading.h"

#include "base/numbers.h"

namespace brantlow {

void ReadRow(const QuoteTable& table, std::size_t row, QuoteArrays& rows) {
    rows.ClearRow(row);
    rows.Symbols[row] = table.Ticker(row);
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        const auto source = CellSourceOf(table.Header(column));
        if (!source) continue;
        const std::string& cell = table.Text(row, column);
        if (source->array != nullptr) {
            (rows.*source->array)[row] = cell;
        } else if (!cell.empty()) {
            rows.MarketCapText[row] = cell + 'M';
            rows.MarketCaps[row] = LeadingNumber(cell);
        }
    }
}

}  // namespace brantlow
