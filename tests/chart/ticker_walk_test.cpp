#include "chart/ticker_walk.h"

#include <gtest/gtest.h>

#include <string>

namespace brantlow {
namespace {

class TickerWalk : public testing::Test {
  protected:
    TickerWalk() {
        table.AppendLine("Ticker Symbol\tCondition 1\tCondition 2\tCondition 3");
        table.AppendLine("A\t\tBuy\t");
        table.AppendLine("B\t\t\t");
        table.AppendLine("\t\tBuy\t");
        table.AppendLine("D\t\tSell\tHold");
        table.AppendLine("E");
    }
    // The rows that a walk meets, from the beginning or the end.
    std::string Walk(bool downwards, std::size_t column) {
        std::string met;
        std::size_t row = 0;
        for (int steps = 0; steps < 20; ++steps) {
            const auto next = NextRow(table, row, downwards, column);
            if (!next) break;
            row = *next;
            met += table.Ticker(row);
        }
        return met;
    }
    QuoteTable table;
};

TEST_F(TickerWalk, MeetsEveryTickerInTheOrderOfTheRows) {
    EXPECT_EQ(Walk(true, kEveryRow), "ABDE");
    EXPECT_EQ(Walk(false, kEveryRow), "EDBA");
}

TEST_F(TickerWalk, MeetsTheHitsOfAConditionOnly) {
    EXPECT_EQ(Walk(true, 2), "AD");
    EXPECT_EQ(Walk(false, 2), "DA");
    EXPECT_EQ(Walk(true, 3), "D");
    EXPECT_EQ(Walk(true, 1), "");
}

TEST_F(TickerWalk, EndsAtBothEnds) {
    EXPECT_FALSE(NextRow(table, 5, true, kEveryRow));
    EXPECT_FALSE(NextRow(table, 1, false, kEveryRow));
    // A row that has gone meanwhile.
    EXPECT_FALSE(NextRow(table, 90, true, kEveryRow));
    EXPECT_EQ(NextRow(table, 90, false, kEveryRow), 5U);
}

TEST_F(TickerWalk, KnowsTheConditionsThatHaveHits) {
    const std::vector<HitColumn> columns = HitColumnsOf(table);
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns[0].condition, 2U);
    EXPECT_EQ(columns[0].column, 2U);
    EXPECT_EQ(columns[1].condition, 3U);
    table.MoveColumn(3, 1);
    EXPECT_EQ(HitColumnsOf(table)[0].column, 3U);
}

TEST_F(TickerWalk, AnEmptyTableHasNone) {
    const QuoteTable empty;
    EXPECT_FALSE(NextRow(empty, 0, true, kEveryRow));
    EXPECT_FALSE(NextRow(empty, 0, false, kEveryRow));
    EXPECT_TRUE(HitColumnsOf(empty).empty());
}

}  // namespace
}  // namespace brantlow
