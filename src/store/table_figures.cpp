#include "store/table_figures.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "base/numbers.h"
#include "shell/run_report.h"
#include "store/row_filter.h"

namespace brantlow {

namespace {

// Volume, market value, and the amounts and numbers of shares among the extended fundamentals.
constexpr auto kSeparated = std::to_array<std::string_view>({
    "Volume",
    "Market Cap (M)",
    "Market Cap (intraday)",
    "Enterprise Value",
    "Revenue (ttm)",
    "Gross Profit (ttm)",
    "EBITDA (ttm)",
    "Net Income Avl to Common (ttm)",
    "Total Cash (mrq)",
    "Total Debt (mrq)",
    "CashFlow From Operations (ttm)",
    "Free Cashflow (ttm)",
    "Shares Outstanding",
    "Float",
    "Shares Short",
    "Shares Short (prior month)",
    "Avg. Rev. Estimate (current quarter)",
    "Avg. Rev. Estimate (next quarter)",
    "Avg. Rev. Estimate (current year)",
    "Avg. Rev. Estimate (next year)",
});
constexpr std::size_t kGroup = 3;
// Of a sum and a mean.
constexpr std::string_view kFigurePicture = "#########0.###";

bool IsDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void AppendCell(std::string& text, const std::string& cell, CellsBetween between) {
    if (between == CellsBetween::Tabs || cell.find_first_of(",\"\r\n") == std::string::npos) {
        text += cell;
        return;
    }
    text += '"';
    for (const char c : cell) {
        if (c == '"') text += '"';
        text += c;
    }
    text += '"';
}

std::string Figure(double value) {
    return WithSeparators(FormatPicture(kFigurePicture, value));
}

// A column of nothing but numbers has a sum; a date or a name has none.
std::string FiguresOf(const QuoteTable& table, std::span<const std::size_t> rows, std::size_t column) {
    double sum = 0;
    std::size_t numbers = 0;
    for (const std::size_t row : rows) {
        const std::string& cell = table.Text(row, column);
        if (const auto number = CellNumber(cell)) {
            sum += *number;
            ++numbers;
        } else if (!cell.empty() && cell != "N/A") {
            return {};
        }
    }
    if (numbers == 0 || column == 0) return {};
    return fmt::format("; {}: sum {}, mean {}", table.Header(column), Figure(sum),
                       Figure(sum / static_cast<double>(numbers)));
}

}  // namespace

bool ShowsSeparators(std::string_view header) {
    return std::find(kSeparated.begin(), kSeparated.end(), header) != kSeparated.end();
}

std::string WithSeparators(std::string_view number) {
    const std::size_t sign = number.starts_with('-') ? 1 : 0;
    const std::string_view whole = number.substr(sign, number.find('.') - sign);
    const std::string_view rest = number.substr(sign + whole.size());
    if (whole.size() <= kGroup || !IsDigits(whole) || !IsDigits(rest.substr(rest.empty() ? 0 : 1)))
        return std::string(number);
    std::string text(number.substr(0, sign));
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % kGroup == 0) text += ',';
        text += whole[i];
    }
    return text.append(rest);
}

std::vector<std::size_t> ShownColumns(const QuoteTable& table) {
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        if (table.Width(column) > 0) columns.push_back(column);
    }
    return columns;
}

std::string RowsText(const QuoteTable& table, std::span<const std::size_t> rows,
                     std::span<const std::size_t> columns, CellsBetween between) {
    const char separator = between == CellsBetween::Tabs ? '\t' : ',';
    std::string text;
    const auto appendRow = [&](std::size_t row) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i > 0) text += separator;
            AppendCell(text, table.Text(row, columns[i]), between);
        }
        text += "\r\n";
    };
    appendRow(0);
    for (const std::size_t row : rows) appendRow(row);
    return text;
}

std::string RowsLine(const RowCounts& counts, const QuoteTable& table, std::span<const std::size_t> counted,
                     std::size_t column) {
    std::string line = Counted(counts.all, "row", "rows");
    if (counts.shown != counts.all) line += fmt::format(", {} shown", counts.shown);
    if (counts.selected > 1) line += fmt::format(", {} selected", counts.selected);
    return line + FiguresOf(table, counted, column);
}

}  // namespace brantlow
