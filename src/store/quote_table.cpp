#include "store/quote_table.h"

#include <algorithm>

namespace brantlow {

namespace {

bool BreaksLine(char c) {
    return c == '\t' || c == '\r' || c == '\n';
}

// The number of cells that a line is split into.
std::size_t CellCount(std::string_view line) {
    const auto tabs = static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t'));
    return std::min(tabs + 1, QuoteTable::kMostColumns);
}

// Cells up to the last that is not empty.
std::size_t FilledCellCount(std::string_view line, std::size_t cellCount) {
    if (cellCount == QuoteTable::kMostColumns) return cellCount;
    const std::size_t last = line.find_last_not_of('\t');
    if (last == std::string_view::npos) return 0;
    return cellCount - (line.size() - 1 - last);
}

}  // namespace

const Cell* QuoteTable::Find(std::size_t row, std::size_t column) const {
    if (row >= rows_.size() || column >= order_.size()) return nullptr;
    const std::size_t place = order_[column];
    return place < rows_[row].size() ? &rows_[row][place] : nullptr;
}

Cell* QuoteTable::Reach(std::size_t row, std::size_t column) {
    if (row >= rows_.size() || column >= order_.size()) return nullptr;
    const std::size_t place = order_[column];
    std::vector<Cell>& cells = rows_[row];
    if (cells.size() <= place) {
        cells.reserve(order_.size());
        cells.resize(place + 1);
    }
    return &cells[place];
}

const std::string& QuoteTable::Text(std::size_t row, std::size_t column) const {
    static const std::string empty;
    const Cell* cell = Find(row, column);
    return cell ? cell->text : empty;
}

CellStyle QuoteTable::Style(std::size_t row, std::size_t column) const {
    const Cell* cell = Find(row, column);
    return cell ? cell->style : CellStyle{};
}

void QuoteTable::SetText(std::size_t row, std::size_t column, std::string_view text) {
    if (text.empty() && !Find(row, column)) return;
    Cell* cell = Reach(row, column);
    if (!cell) return;
    cell->text = text;
    std::replace_if(cell->text.begin(), cell->text.end(), BreaksLine, ' ');
}

void QuoteTable::SetStyle(std::size_t row, std::size_t column, CellStyle style) {
    if (Cell* cell = Reach(row, column)) cell->style = style;
}

std::optional<std::size_t> QuoteTable::ColumnOf(std::string_view header) const {
    for (std::size_t column = 0; column < order_.size(); ++column) {
        if (Header(column) == header) return column;
    }
    return std::nullopt;
}

void QuoteTable::Widen(std::size_t columnCount) {
    while (order_.size() < columnCount) {
        widths_.push_back(order_.empty() ? tickerWidth_ : otherWidth_);
        order_.push_back(static_cast<std::uint32_t>(order_.size()));
    }
}

bool QuoteTable::AppendLine(std::string_view line) {
    if (rows_.size() >= kMostRows) return false;
    const std::size_t cellCount = CellCount(line);
    const std::size_t filled = FilledCellCount(line, cellCount);
    Widen(cellCount);
    std::vector<Cell>& row = rows_.emplace_back();
    row.reserve(filled);
    for (std::size_t i = 0; i < filled; ++i) {
        const std::size_t end = i + 1 == kMostColumns ? line.size() : std::min(line.find('\t'), line.size());
        const std::size_t place = order_[i];
        if (row.size() <= place) row.resize(place + 1);
        row[place].text = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return true;
}

void QuoteTable::SetRowCount(std::size_t count) {
    rows_.resize(std::min(count, kMostRows));
    if (!rows_.empty()) Widen(1);
}

void QuoteTable::RemoveRow(std::size_t row) {
    if (row == 0 || row >= rows_.size()) return;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

void QuoteTable::ReorderRows(const std::vector<std::size_t>& rows) {
    if (rows.size() != TickerCount()) return;
    std::vector<bool> seen(rows_.size());
    for (const std::size_t row : rows) {
        if (row == 0 || row >= rows_.size() || seen[row]) return;
        seen[row] = true;
    }
    std::vector<std::vector<Cell>> ordered;
    ordered.reserve(rows_.size());
    if (!rows_.empty()) ordered.push_back(std::move(rows_.front()));
    for (const std::size_t row : rows) ordered.push_back(std::move(rows_[row]));
    rows_ = std::move(ordered);
}

void QuoteTable::MoveColumn(std::size_t from, std::size_t to) {
    if (from == 0 || to == 0 || from >= order_.size() || to >= order_.size()) return;
    const auto rotate = [&](auto& values) {
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(std::min(from, to));
        const auto last = values.begin() + static_cast<std::ptrdiff_t>(std::max(from, to)) + 1;
        std::rotate(first, from < to ? first + 1 : last - 1, last);
    };
    rotate(order_);
    rotate(widths_);
}

int QuoteTable::Width(std::size_t column) const {
    return column < widths_.size() ? widths_[column] : 0;
}

void QuoteTable::SetWidth(std::size_t column, int twips) {
    if (column < widths_.size()) widths_[column] = twips;
}

void QuoteTable::ResetWidths(int tickerTwips, int otherTwips) {
    tickerWidth_ = tickerTwips;
    otherWidth_ = otherTwips;
    std::fill(widths_.begin(), widths_.end(), otherTwips);
    if (!widths_.empty()) widths_.front() = tickerTwips;
}

void QuoteTable::AppendLineText(std::size_t row, std::string& out) const {
    for (std::size_t column = 0; column < order_.size(); ++column) {
        if (column > 0) out += '\t';
        out += Text(row, column);
    }
}

std::vector<std::string> QuoteTable::Tickers() const {
    std::vector<std::string> tickers;
    for (std::size_t row = 1; row < RowCount(); ++row) tickers.push_back(Ticker(row));
    return tickers;
}

void QuoteTable::SetSource(const Path& file, const FileStamp& stamp) {
    source_ = file;
    stamp_ = stamp;
}

bool QuoteTable::SourceHasChanged(const Path& file) const {
    return source_ == file && HasChanged(stamp_, file);
}

}  // namespace brantlow
