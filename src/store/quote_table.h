// The quote table in memory: row 0 the header, column 0 the ticker, one row a ticker. The window shows it,
// the batch tool edits it, and the table-shaped files (.ddq, .db, .dbe, .efq) are its text form.
//
// Columns stand in display order and are found by header text. A cell's colours are an attribute of the cell
// and move with it; they are not saved.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// The kind of a table, read from the end of its file name, case and all.
enum class FileKind { None, Ddq, Db, Dbe, Efq };

FileKind KindOf(std::string_view fileName);

// How a cell is drawn; the colours of each style stand in table_colours.h.
enum class CellStyle : unsigned char;

struct Cell {
    std::string text;
    CellStyle style{};
};

class QuoteTable {
  public:
    // Rows with the header; 0 when the file was empty.
    std::size_t RowCount() const { return rows_.size(); }
    std::size_t ColumnCount() const { return columnCount_; }
    std::size_t TickerCount() const { return rows_.empty() ? 0 : rows_.size() - 1; }

    // Empty outside the table and where a short row has no cell.
    const std::string& Text(std::size_t row, std::size_t column) const;
    CellStyle Style(std::size_t row, std::size_t column) const;
    // Outside the table they do nothing.
    void SetText(std::size_t row, std::size_t column, std::string_view text);
    void SetStyle(std::size_t row, std::size_t column, CellStyle style);

    const std::string& Header(std::size_t column) const { return Text(0, column); }
    const std::string& Ticker(std::size_t row) const { return Text(row, 0); }
    // The first column with this header, or nothing.
    std::optional<std::size_t> ColumnOf(std::string_view header) const;

    // Adds a row of tab-separated cells at the end; refused (false) beyond kMostRows lines.
    bool AppendLine(std::string_view line);
    void RemoveRow(std::size_t row);
    // Takes column `from` out and puts it in at position `to`; the columns between close the gap.
    void MoveColumn(std::size_t from, std::size_t to);

    // Width in twips at which a column is shown; 0 hides it.
    int Width(std::size_t column) const;
    void SetWidth(std::size_t column, int twips);

    // The row as its line of the file: every column, separated by tabs.
    std::string LineText(std::size_t row) const;

  private:
    std::vector<std::vector<Cell>> rows_;
    std::vector<int> widths_;
    std::size_t columnCount_ = 0;
};

}  // namespace brantlow
