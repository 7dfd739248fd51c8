#include "store/table_sort.h"

#include "store/table_colours.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

class TableSortTest : public SessionTest {
  protected:
    static QuoteTable Column(const char* header, const std::vector<std::string>& cells) {
        QuoteTable table;
        table.AppendLine(std::string("Ticker Symbol\t") + header);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            table.AppendLine("T" + std::to_string(i + 1) + "\t" + cells[i]);
        }
        return table;
    }
    static std::vector<std::string> Cells(const QuoteTable& table, std::size_t column) {
        std::vector<std::string> cells;
        for (std::size_t row = 1; row < table.RowCount(); ++row) cells.push_back(table.Text(row, column));
        return cells;
    }
};

using Cells_ = std::vector<std::string>;

TEST_F(TableSortTest, DatesAcrossAYearEndAreInCalendarOrder) {
    QuoteTable table = Column("Trade Date", {"01/02/24", "12/29/23", "", "02/01/24", "12/30/23"});
    SortTable(table, 1, SortOrder::Ascending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"", "12/29/23", "12/30/23", "01/02/24", "02/01/24"}));
    SortTable(table, 1, SortOrder::Descending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"02/01/24", "01/02/24", "12/30/23", "12/29/23", ""}));
}

TEST_F(TableSortTest, DatesTakeTheirUsualForm) {
    QuoteTable table = Column("X Dividend Date", {"3/1/2024", "N/A", "Feb-1-2024"});
    SortTable(table, 1, SortOrder::Ascending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"02/01/24", "03/01/24", "N/A"}));
}

TEST_F(TableSortTest, NamesAreInTextOrder) {
    QuoteTable table = Column("Name", {"beta", "Alpha", "12/29/23", "Zeta", "01/02/24"});
    SortTable(table, 1, SortOrder::Ascending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"01/02/24", "12/29/23", "Alpha", "Zeta", "beta"}));
}

TEST_F(TableSortTest, NumbersGoByTheirValues) {
    QuoteTable table = Column("Last Price", {"100.000", "20.500", "", "-3.000", "N/A"});
    SortTable(table, 1, SortOrder::Ascending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"", "-3.000", "20.500", "100.000", "N/A"}));
}

TEST_F(TableSortTest, WholeRowsMoveWithTheirColours) {
    QuoteTable table = Column("Last Price", {"2", "1"});
    table.SetStyle(1, 1, CellStyle::Strong);
    SortTable(table, 1, SortOrder::Ascending);
    EXPECT_EQ(LinesOf(table), (Cells_{"Ticker Symbol\tLast Price", "T2\t1", "T1\t2"}));
    EXPECT_EQ(table.Style(2, 1), CellStyle::Strong);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Plain);
}

TEST_F(TableSortTest, EqualCellsKeepTheirOrderBothWays) {
    QuoteTable table = Column("Last Price", {"1", "1", "1"});
    for (const SortOrder order : {SortOrder::Ascending, SortOrder::Descending}) {
        SortTable(table, 1, order);
        EXPECT_EQ(Cells(table, 0), (Cells_{"T1", "T2", "T3"}));
    }
}

TEST_F(TableSortTest, AColumnThatIsNotThereOrNoRowsChangeNothing) {
    QuoteTable table = Column("Last Price", {"2", "1"});
    SortTable(table, 2, SortOrder::Ascending);
    EXPECT_EQ(Cells(table, 1), (Cells_{"2", "1"}));
    QuoteTable empty;
    SortTable(empty, 0, SortOrder::Ascending);
    EXPECT_EQ(empty.RowCount(), 0U);
}

TEST_F(TableSortTest, ReorderingTakesOnlyEachRowOnce) {
    QuoteTable table = Column("Last Price", {"2", "1"});
    for (const std::vector<std::size_t>& rows : {std::vector<std::size_t>{1, 1}, {0, 1}, {1, 3}, {1}, {}}) {
        table.ReorderRows(rows);
        EXPECT_EQ(Cells(table, 1), (Cells_{"2", "1"}));
    }
    table.ReorderRows({2, 1});
    EXPECT_EQ(Cells(table, 1), (Cells_{"1", "2"}));
}

}  // namespace
}  // namespace brantlow
