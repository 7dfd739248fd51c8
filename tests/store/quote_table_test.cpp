#include "store/quote_table.h"

#include "store/store_fixture.h"
#include "support/table_lines.h"

namespace brantlow {
namespace {

QuoteTable TableOf(const std::vector<std::string>& lines) {
    QuoteTable table;
    for (const std::string& line : lines) EXPECT_TRUE(table.AppendLine(line));
    return table;
}

TEST(QuoteTable, SplitsLinesAtTabs) {
    const QuoteTable table = TableOf({"Ticker Symbol\tLast Price\tName", "IBM\t1.500\tInter"});
    EXPECT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(table.TickerCount(), 1U);
    EXPECT_EQ(table.ColumnCount(), 3U);
    EXPECT_EQ(table.Ticker(1), "IBM");
    EXPECT_EQ(table.Text(1, 2), "Inter");
    EXPECT_EQ(table.Header(1), "Last Price");
    EXPECT_EQ(table.ColumnOf("Name"), 2U);
    EXPECT_FALSE(table.ColumnOf("name"));
}

TEST(QuoteTable, IsEmptyBeforeTheFirstLine) {
    const QuoteTable table;
    EXPECT_EQ(table.RowCount(), 0U);
    EXPECT_EQ(table.TickerCount(), 0U);
    EXPECT_EQ(table.ColumnCount(), 0U);
    EXPECT_EQ(table.Ticker(1), "");
    EXPECT_EQ(LineText(table, 0), "");
    EXPECT_FALSE(table.ColumnOf("Ticker Symbol"));
}

TEST(QuoteTable, IsAsWideAsItsWidestLine) {
    const QuoteTable table = TableOf({"T\tA", "x", "y\t1\t2\t", "", "\t\t"});
    EXPECT_EQ(table.ColumnCount(), 4U);
    EXPECT_EQ(LineText(table, 0), "T\tA\t\t");
    EXPECT_EQ(LineText(table, 1), "x\t\t\t");
    EXPECT_EQ(LineText(table, 2), "y\t1\t2\t");
    EXPECT_EQ(LineText(table, 3), "\t\t\t");
    EXPECT_EQ(table.Text(1, 3), "");
    EXPECT_EQ(table.Text(9, 0), "");
    EXPECT_EQ(table.Text(0, 9), "");
}

TEST(QuoteTable, ALineOfManyTabsKeepsEveryByteInItsLastColumn) {
    const std::string line = "x" + std::string(QuoteTable::kMostColumns + 50, '\t') + "end\tz";
    const QuoteTable table = TableOf({line});
    EXPECT_EQ(table.ColumnCount(), QuoteTable::kMostColumns);
    EXPECT_EQ(LineText(table, 0), line);
    const std::string full(QuoteTable::kMostColumns - 1, '\t');
    EXPECT_EQ(LineText(TableOf({full}), 0), full);
    EXPECT_EQ(LineText(TableOf({full + '\t'}), 0), full + '\t');
}

TEST(QuoteTable, CellTextCannotHoldATabOrALineEnd) {
    QuoteTable table = TableOf({"T\tA", "x"});
    table.SetText(1, 1, "a\tb\r\nc");
    EXPECT_EQ(table.Text(1, 1), "a b  c");
    EXPECT_EQ(LineText(table, 1), "x\ta b  c");
}

TEST(QuoteTable, SettingOutsideTheTableDoesNothing) {
    QuoteTable table = TableOf({"T\tA", "x"});
    table.SetText(2, 0, "y");
    table.SetText(1, 2, "y");
    table.SetStyle(2, 0, CellStyle{3});
    EXPECT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(table.ColumnCount(), 2U);
    EXPECT_EQ(LineText(table, 1), "x\t");
}

TEST(QuoteTable, RefusesALineBeyondTheMostRows) {
    QuoteTable table;
    for (std::size_t i = 0; i < kMostRows; ++i) ASSERT_TRUE(table.AppendLine("x"));
    EXPECT_FALSE(table.AppendLine("one more"));
    EXPECT_EQ(table.RowCount(), 18000U);
    EXPECT_EQ(table.TickerCount(), 17999U);
    table.SetRowCount(kMostRows + 1);
    EXPECT_EQ(table.RowCount(), 18000U);
}

TEST(QuoteTable, RowCountGrowsAndShrinksAtTheEnd) {
    QuoteTable table = TableOf({"T\tA", "x\t1", "y\t2"});
    table.SetRowCount(4);
    EXPECT_EQ(LineText(table, 3), "\t");
    table.SetRowCount(2);
    EXPECT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(LineText(table, 1), "x\t1");
}

TEST(QuoteTable, RemovesARowButNotTheHeader) {
    QuoteTable table = TableOf({"T\tA", "x\t1", "y\t2"});
    table.RemoveRow(0);
    table.RemoveRow(7);
    EXPECT_EQ(table.RowCount(), 3U);
    table.RemoveRow(1);
    EXPECT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(table.Ticker(1), "y");
}

TEST(QuoteTable, AMovedColumnTakesTextStyleAndWidthAlong) {
    QuoteTable table = TableOf({"T\tA\tB\tC", "x\t1\t2\t3"});
    for (std::size_t c = 0; c < 4; ++c) table.SetWidth(c, static_cast<int>(c) * 10);
    table.SetStyle(1, 3, CellStyle{5});
    table.MoveColumn(3, 1);
    EXPECT_EQ(LineText(table, 0), "T\tC\tA\tB");
    EXPECT_EQ(LineText(table, 1), "x\t3\t1\t2");
    EXPECT_EQ(table.Style(1, 1), CellStyle{5});
    EXPECT_EQ(table.Style(1, 3), CellStyle{});
    EXPECT_EQ(table.Width(1), 30);
    EXPECT_EQ(table.Width(2), 10);
    table.MoveColumn(1, 2);
    EXPECT_EQ(LineText(table, 0), "T\tA\tC\tB");
    EXPECT_EQ(table.Width(2), 30);
    table.SetText(1, 2, "new");
    EXPECT_EQ(LineText(table, 1), "x\t1\tnew\t2");
}

TEST(QuoteTable, TheTickerColumnStaysFirst) {
    QuoteTable table = TableOf({"T\tA\tB"});
    table.MoveColumn(0, 1);
    table.MoveColumn(2, 0);
    table.MoveColumn(1, 3);
    EXPECT_EQ(LineText(table, 0), "T\tA\tB");
}

TEST(QuoteTable, LinesAppendedAfterAMoveKeepTheirPlaces) {
    QuoteTable table = TableOf({"T\tA\tB"});
    table.MoveColumn(2, 1);
    table.SetRowCount(2);
    table.SetText(1, 1, "b");
    EXPECT_EQ(LineText(table, 0), "T\tB\tA");
    EXPECT_EQ(LineText(table, 1), "\tb\t");
    table.AppendLine("x\t1\t2\t3");
    EXPECT_EQ(LineText(table, 2), "x\t1\t2\t3");
}

TEST(QuoteTable, ResetWidthsHoldsForColumnsYetToCome) {
    QuoteTable table;
    table.ResetWidths(1300, 7);
    table.AppendLine("T\tA");
    table.SetWidth(1, 50);
    table.AppendLine("x\t1\t2");
    EXPECT_EQ(table.Width(0), 1300);
    EXPECT_EQ(table.Width(1), 50);
    EXPECT_EQ(table.Width(2), 7);
    EXPECT_EQ(table.Width(3), 0);
}

}  // namespace
}  // namespace brantlow
