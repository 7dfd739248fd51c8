// The quote table in memory: row 0 the header, column 0 the ticker, one row a ticker. The window shows it,
// the batch tool edits it, and the table-shaped files (.ddq, .db, .dbe, .efq) are its text form.
//
// Columns stand in display order and are found by header text; the table is as wide as its widest line, so
// that a ragged file loses nothing. A cell's colours are an attribute of the cell and move with it; they are
// not saved. A reference to a cell's text is good until the table changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "shell/settings/settings_tables.h"
#include "store/file_names.h"
#include "store/file_stamp.h"
#include "store/table_origin.h"

namespace brantlow {

// How a cell is drawn; the colours of each style stand in table_colours.h.
enum class CellStyle : unsigned char;

struct Cell {
    std::string text;
    CellStyle style{};
};

class QuoteTable {
  public:
    // The most columns that a line is split into; what stands behind stays together in the last one.
    static constexpr std::size_t kMostColumns = 1000;

    // Rows with the header, at most kMostRows; 0 when the file was empty.
    std::size_t RowCount() const { return rows_.size(); }
    std::size_t ColumnCount() const { return order_.size(); }
    std::size_t TickerCount() const { return rows_.empty() ? 0 : rows_.size() - 1; }

    // Empty outside the table and where a short row has no cell.
    const std::string& Text(std::size_t row, std::size_t column) const;
    CellStyle Style(std::size_t row, std::size_t column) const;
    // Outside the table they do nothing. A cell cannot hold a tab or a line end: each becomes a blank.
    void SetText(std::size_t row, std::size_t column, std::string_view text);
    void SetStyle(std::size_t row, std::size_t column, CellStyle style);

    const std::string& Header(std::size_t column) const { return Text(0, column); }
    const std::string& Ticker(std::size_t row) const { return Text(row, 0); }
    // Of rows 1 up.
    std::vector<std::string> Tickers() const;
    // The first column with this header, or nothing.
    std::optional<std::size_t> ColumnOf(std::string_view header) const;

    // Adds a row of tab-separated cells, in display order, at the end; refused (false) beyond kMostRows
    // lines.
    bool AppendLine(std::string_view line);
    // Adds empty rows at the end, or takes rows away there, until there are `count` with the header; no more
    // than kMostRows.
    void SetRowCount(std::size_t count);
    // The header cannot be removed.
    void RemoveRow(std::size_t row);
    // Puts the rows below the header into a new order: `rows` holds each of their numbers once. Any other
    // list changes nothing.
    void ReorderRows(const std::vector<std::size_t>& rows);
    // Takes column `from` out and puts it in at position `to`; the columns between close the gap. The ticker
    // column is fixed: nothing moves from or to position 0.
    void MoveColumn(std::size_t from, std::size_t to);

    // Width in twips at which a column is shown; 0 hides it.
    int Width(std::size_t column) const;
    void SetWidth(std::size_t column, int twips);
    // Sets the width of the ticker column and of all others, those that lines yet to come bring included.
    void ResetWidths(int tickerTwips, int otherTwips);

    // The file whose bytes the table holds, as it was when they were read or written.
    void SetSource(const Path& file, const FileStamp& stamp);
    // False while that file has the bytes it had then; a table that came from nowhere has none to change.
    bool SourceHasChanged(const Path& file) const;

    // Of a table of verdicts: what it was made of, where that is known. It goes with the table when it is
    // saved.
    const std::optional<TableOrigin>& Origin() const { return origin_; }
    void SetOrigin(std::optional<TableOrigin> origin) { origin_ = std::move(origin); }

    // Adds the row as its line of the file: every column, separated by tabs.
    void AppendLineText(std::size_t row, std::string& out) const;

  private:
    const Cell* Find(std::size_t row, std::size_t column) const;
    Cell* Reach(std::size_t row, std::size_t column);
    void Widen(std::size_t columnCount);

    // The cells of a row stand in the order in which they came; a row ends at its last cell that ever held
    // something. Moving a column moves one number in `order_`, whatever the number of rows.
    std::vector<std::vector<Cell>> rows_;
    std::vector<std::uint32_t> order_;  // display position -> place in a row
    std::vector<int> widths_;           // by display position
    Path source_;
    FileStamp stamp_;
    std::optional<TableOrigin> origin_;
    int tickerWidth_ = 0;
    int otherWidth_ = 0;
};

}  // namespace brantlow
