#include "store/table_sort.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "base/numbers.h"

namespace brantlow {

namespace {

// What a cell is compared by: empty cells, then numbers, then texts.
struct SortKey {
    enum class Kind { Empty, Number, Text };
    Kind kind = Kind::Empty;
    double number = 0;
    std::string text;

    bool operator<(const SortKey& other) const {
        if (kind != other.kind) return kind < other.kind;
        return kind == Kind::Number ? number < other.number : text < other.text;
    }
};

// A day as the number YYYYMMDD.
double DayNumber(const Date& date) {
    constexpr int kYears = 10000;
    constexpr int kMonths = 100;
    const int month = static_cast<int>(static_cast<unsigned>(date.month()));
    const int day = static_cast<int>(static_cast<unsigned>(date.day()));
    return static_cast<int>(date.year()) * kYears + month * kMonths + day;
}

SortKey KeyOf(const std::string& cell, bool isDate) {
    if (cell.empty()) return {};
    if (isDate) {
        if (const auto date = ParseDate(cell)) return {SortKey::Kind::Number, DayNumber(*date), {}};
    } else if (const auto number = WholeNumber(cell)) {
        return {SortKey::Kind::Number, *number, {}};
    }
    return {SortKey::Kind::Text, 0, cell};
}

}  // namespace

void SortTable(QuoteTable& table, std::size_t column, SortOrder order) {
    if (column >= table.ColumnCount() || table.TickerCount() == 0) return;
    const bool isDate = table.Header(column).ends_with("Date");
    std::vector<SortKey> keys(table.RowCount());
    for (std::size_t row = 1; row < keys.size(); ++row) {
        if (isDate) table.SetText(row, column, ReformatDate(table.Text(row, column)));
        keys[row] = KeyOf(table.Text(row, column), isDate);
    }
    std::vector<std::size_t> rows(table.TickerCount());
    std::iota(rows.begin(), rows.end(), std::size_t{1});
    std::stable_sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) {
        return order == SortOrder::Ascending ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    table.ReorderRows(rows);
}

}  // namespace brantlow
