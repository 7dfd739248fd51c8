#include "store/table_figures.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "store/columns.h"

namespace brantlow {
namespace {

QuoteTable FiguredTable() {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tChange\tVolume\tName");
    table.AppendLine("AA\t2.500\t900000\tAlpha, Inc.");
    table.AppendLine("BB\t-1.000\t1600000\tThe \"Beta\"");
    table.AppendLine("CC\tN/A\t\tGamma");
    table.ResetWidths(1300, 1100);
    return table;
}

TEST(TableFigures, SeparateTheThousands) {
    const std::pair<const char*, const char*> rows[] = {
        {"1", "1"},
        {"999", "999"},
        {"1000", "1,000"},
        {"1234567", "1,234,567"},
        {"-1234567.125", "-1,234,567.125"},
        {"123456", "123,456"},
        {"12345.6789", "12,345.6789"},
        {"-123", "-123"},
        {"", ""},
        {"N/A", "N/A"},
        {"1e10", "1e10"},
        {"1,000", "1,000"},
        {"12345 shares", "12345 shares"},
        {"1234.5.6", "1234.5.6"},
    };
    for (const auto& [number, shown] : rows) EXPECT_EQ(WithSeparators(number), shown) << number;
    EXPECT_TRUE(ShowsSeparators("Volume"));
    EXPECT_TRUE(ShowsSeparators("Market Cap (M)"));
    EXPECT_FALSE(ShowsSeparators("Last Price"));
}

TEST(TableFigures, SeparateTheAmountsOfTheExtendedFundamentals) {
    std::vector<std::string_view> separated;
    const std::string headers = EfqHeader();
    for (const std::string_view header : SplitAt(headers, '\t')) {
        if (ShowsSeparators(header)) separated.push_back(header);
    }
    const std::vector<std::string_view> amounts = {"Market Cap (intraday)",
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
                                                   "Avg. Rev. Estimate (next year)"};
    EXPECT_EQ(separated, amounts);
}

TEST(TableFigures, RowsAreTextWithTheirHeader) {
    QuoteTable table = FiguredTable();
    table.SetWidth(1, 0);
    const std::vector<std::size_t> columns = ShownColumns(table);
    EXPECT_EQ(columns, (std::vector<std::size_t>{0, 2, 3}));
    const std::vector<std::size_t> rows = {2, 1};
    EXPECT_EQ(RowsText(table, rows, columns, CellsBetween::Tabs),
              "Ticker Symbol\tVolume\tName\r\nBB\t1600000\tThe \"Beta\"\r\nAA\t900000\tAlpha, Inc.\r\n");
    EXPECT_EQ(
        RowsText(table, rows, columns, CellsBetween::Commas),
        "Ticker Symbol,Volume,Name\r\nBB,1600000,\"The \"\"Beta\"\"\"\r\nAA,900000,\"Alpha, Inc.\"\r\n");
    EXPECT_EQ(RowsText(table, {}, columns, CellsBetween::Commas), "Ticker Symbol,Volume,Name\r\n");
}

TEST(TableFigures, TheLineCountsRowsAndAddsUpAColumn) {
    const QuoteTable table = FiguredTable();
    const std::vector<std::size_t> all = {1, 2, 3};
    EXPECT_EQ(RowsLine({3, 3, 1}, table, all, 2), "3 rows; Volume: sum 2,500,000, mean 1,250,000");
    EXPECT_EQ(RowsLine({3, 3, 2}, table, all, 1), "3 rows, 2 selected; Change: sum 1.5, mean 0.75");
    EXPECT_EQ(RowsLine({3, 2, 1}, table, all, 3), "3 rows, 2 shown");
    EXPECT_EQ(RowsLine({3, 2, 2}, table, all, 0), "3 rows, 2 shown, 2 selected");
    EXPECT_EQ(RowsLine({1, 1, 1}, table, {}, 2), "1 row");
    EXPECT_EQ(RowsLine({0, 0, 0}, table, {}, 0), "0 rows");
}

}  // namespace
}  // namespace brantlow
