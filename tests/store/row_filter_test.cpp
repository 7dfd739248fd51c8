#include "store/row_filter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brantlow {
namespace {

QuoteTable FilteredTable() {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tLast Price\tChange\tChange (%)\tVolume\tName\tExchange");
    table.AppendLine("AA\t10.000\t2.500\t+2.5%\t900000\tAlpha Bank\tNYSE");
    table.AppendLine("BB\t20.000\t-1.000\t-4.8%\t1000000\tBeta, Inc.\tNASDAQ");
    table.AppendLine("CC\t30.000\t2.000\t7.1%\t2500000\tGamma Banking\tnyse");
    table.AppendLine("DD\tN/A\t\t\t\tDelta\t");
    return table;
}

TEST(RowFilter, ShowsTheRowsThatItSays) {
    struct Row {
        std::string text;
        std::vector<std::size_t> rows;
    };
    const Row rows[] = {
        {"", {1, 2, 3, 4}},
        {"   ", {1, 2, 3, 4}},
        {"Change > 2", {1}},
        {"change>=2", {1, 3}},
        {"Change < 0", {2}},
        {"Change <= 2", {2, 3}},
        {"Change = 2", {3}},
        {"Change = 2.000", {3}},
        // A cell without a number is no other number, but it is another text.
        {"Change != 2", {1, 2, 4}},
        {"Change <> 2", {1, 2, 4}},
        {"Change (%) > 3", {3}},
        {"Change (%) < -4%", {2}},
        {"Volume >= 1,000,000", {2, 3}},
        {"Volume >= 1M", {2, 3}},
        {"volume > 900k", {2, 3}},
        {"Volume < 0.001B", {1}},
        {"Vol > 1M", {3}},
        {"Exchange = NYSE", {1, 3}},
        {"Exchange != nyse", {2, 4}},
        {"Exchange =", {4}},
        {"bank", {1, 3}},
        {"NASDAQ", {2}},
        {"bb", {2}},
        {"zzz", {}},
        {"bank and Change > 2", {1}},
        {"bank AND volume > 1M and change >= 2", {3}},
        {"Last > 15", {2, 3}},
        // "Change" is a whole header although another begins so too.
        {"Change > -2 and Change < 0", {2}},
    };
    const QuoteTable table = FilteredTable();
    for (const Row& row : rows) {
        const RowFilter filter = RowFilter::Parse(row.text, table);
        EXPECT_EQ(filter.Rows(table), row.rows) << row.text;
        EXPECT_EQ(filter.Complaint(), "") << row.text;
    }
}

TEST(RowFilter, SaysWhatIsWrongAndThenShowsAll) {
    const std::pair<const char*, const char*> rows[] = {
        {"Chnge > 2", "There is no column Chnge."},
        // Two headers begin so.
        {"Ch > 2", "There is no column Ch."},
        {"Change > two", "two is no number."},
        {"Change >", "A number is missing behind >."},
        {"bank and Cap < 3", "There is no column Cap."},
        {"hit in 3", "Only a Stock Selector file tells the hits of a condition."},
        {"hit in condition 3", "Only a Stock Selector file tells the hits of a condition."},
    };
    const QuoteTable table = FilteredTable();
    for (const auto& [text, complaint] : rows) {
        const RowFilter filter = RowFilter::Parse(text, table);
        EXPECT_EQ(filter.Complaint(), complaint) << text;
        EXPECT_TRUE(filter.PassesAll()) << text;
        EXPECT_EQ(filter.Rows(table).size(), 4u) << text;
    }
}

TEST(RowFilter, FindsTheHitsOfACondition) {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tCondition 1\tCondition 2\tCondition 10");
    table.AppendLine("AA\tBuy\tHold\tSell");
    table.AppendLine("BB\tHold\tSell\tBuy");
    table.AppendLine("CC\tSell\t\tHold");
    const std::pair<const char*, std::vector<std::size_t>> rows[] = {
        {"hit in condition 1", {1, 3}},
        {"Hit in Condition 2", {2}},
        {"hit in condition 10", {1, 2}},
        {"buy in condition 1", {1}},
        {"sell in condition 1", {3}},
        {"hold in condition 1", {2}},
        {"buy in 1", {1}},
        {"Hit in 10", {1, 2}},
        {"hit in 1 and sell in 2", {}},
        // Words that name no condition are looked for as they stand.
        {"buy in bulk", {}},
        {"hit in", {}},
        {"hit in condition 1 and hit in condition 10", {1}},
    };
    for (const auto& [text, shown] : rows)
        EXPECT_EQ(RowFilter::Parse(text, table).Rows(table), shown) << text;
    EXPECT_EQ(RowFilter::Parse("hit in condition 3", table).Complaint(), "There is no condition 3.");
    EXPECT_EQ(RowFilter::Parse("buy in 11", table).Complaint(), "There is no condition 11.");
    EXPECT_EQ(RowFilter::Parse("hit in condition two", table).Complaint(), "There is no condition two.");
}

TEST(RowFilter, ReadsTheNumbersOfCells) {
    EXPECT_EQ(CellNumber("2.5"), 2.5);
    EXPECT_EQ(CellNumber("-4.8%"), -4.8);
    EXPECT_EQ(CellNumber("N/A"), std::nullopt);
    EXPECT_EQ(CellNumber(""), std::nullopt);
    EXPECT_EQ(CellNumber("%"), std::nullopt);
}

}  // namespace
}  // namespace brantlow
