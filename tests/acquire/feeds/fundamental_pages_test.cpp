#include "acquire/feeds/fundamental_pages.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "store/columns.h"
#include "support/table_lines.h"

namespace brantlow {
namespace {

// A table of one ticker, and what stands in its row afterwards.
class FundamentalPagesTest : public ::testing::Test {
  protected:
    FundamentalPagesTest() {
        table.AppendLine(EfqHeader());
        table.AppendLine("IBM");
    }

    const std::string& Cell(std::size_t column) const { return table.Text(1, column); }
    // The cells that hold something, as "column=text" with blanks between.
    std::string Filled() const {
        std::string filled;
        for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
            if (Cell(column).empty()) continue;
            if (!filled.empty()) filled += ' ';
            filled += std::to_string(column) + "=" + Cell(column);
        }
        return filled;
    }
    // What one page alone fills in an empty row.
    std::string Read(FundamentalPage page, std::string_view text) {
        table.SetRowCount(1);
        table.AppendLine("IBM");
        ParseFundamentalPage(page, text, table, 1);
        return Filled();
    }
    std::string KeyStatistics(std::string_view text) { return Read(FundamentalPage::KeyStatistics, text); }
    std::string Opinion(std::string_view text) { return Read(FundamentalPage::AnalystOpinion, text); }
    std::string Estimates(std::string_view text) { return Read(FundamentalPage::AnalystEstimates, text); }

    QuoteTable table;
};

struct LabelRow {
    std::size_t column;
    const char* label;
    bool scaled;
};

constexpr LabelRow kStatisticsRows[] = {
    {1, "Market Cap (intraday)", true},
    {2, "Enterprise Value", true},
    {3, "Trailing P/E (ttm, intraday)", false},
    {4, "Forward P/E", false},
    {5, "PEG Ratio (5 yr expected)", false},
    {6, "Price/Sales (ttm)", false},
    {7, "Price/Book (mrq)", false},
    {8, "Enterprise Value/Revenue (ttm)", false},
    {9, "Enterprise Value/EBITDA (ttm)", false},
    {10, "Profit Margin (ttm)", false},
    {11, "Operating Margin (ttm)", false},
    {12, "Return on Assets (ttm)", false},
    {13, "Return on Equity (ttm)", false},
    {14, "Revenue (ttm)", true},
    {15, "Revenue Per Share (ttm)", false},
    {16, "Revenue Growth (lfy)", false},
    {17, "Gross Profit (ttm)", true},
    {18, "EBITDA (ttm)", true},
    {19, "Net Income Avl to Common (ttm)", true},
    {20, "Diluted EPS (ttm)", false},
    {21, "Earnings Growth (lfy)", false},
    {22, "Total Cash (mrq)", true},
    {23, "Total Cash Per Share (mrq)", false},
    {24, "Total Debt (mrq)", true},
    {25, "Total Debt/Equity (mrq)", false},
    {26, "Current Ratio (mrq)", false},
    {27, "Book Value Per Share (mrq)", false},
    {28, "From Operations (ttm)", true},
    {29, "Free Cashflow (ttm)", true},
    {30, "Beta", false},
    {31, "Shares Outstanding", true},
    {32, "Float", true},
    {33, "% Held by Insiders", false},
    {34, "% Held by Institutions", false},
    {35, "Shares Short", true},
    {36, "Short Ratio", false},
    {37, "Short % of Float", false},
    {38, "Shares Short (prior month)", false},
};

constexpr LabelRow kOpinionRows[] = {
    {39, "Mean Recommendation (this week)", false},
    {40, "Mean Recommendation (last week)", false},
    {41, "Mean Target", false},
    {42, "Median Target", false},
    {43, "High Target", false},
    {44, "Low Target", false},
    {45, "No. of Brokers", false},
};

TEST_F(FundamentalPagesTest, EachPageHasItsPath) {
    ASSERT_EQ(kFundamentalPages.size(), 3U);
    EXPECT_EQ(kFundamentalPages[0].page, FundamentalPage::KeyStatistics);
    EXPECT_EQ(kFundamentalPages[0].path, "/q/ks?s=");
    EXPECT_EQ(kFundamentalPages[1].page, FundamentalPage::AnalystOpinion);
    EXPECT_EQ(kFundamentalPages[1].path, "/q/ao?s=");
    EXPECT_EQ(kFundamentalPages[2].page, FundamentalPage::AnalystEstimates);
    EXPECT_EQ(kFundamentalPages[2].path, "/q/ae?s=");
}

TEST_F(FundamentalPagesTest, EachLabelOfTheKeyStatisticsFillsItsColumn) {
    ASSERT_EQ(std::size(kStatisticsRows), kKeyStatisticsLabels.size());
    for (const LabelRow& row : kStatisticsRows) {
        const std::string line = std::string(row.label) + (row.scaled ? ":2.5M" : ":2.5%");
        const std::string value = row.scaled ? "2500000" : "2.5";
        EXPECT_EQ(KeyStatistics(line), std::to_string(row.column) + "=" + value) << line;
        const std::string bare = row.scaled ? "" : std::to_string(row.column) + "=2.5";
        EXPECT_EQ(KeyStatistics(std::string(row.label) + ":2.5"), bare) << row.label;
    }
}

TEST_F(FundamentalPagesTest, EachLabelOfTheAnalystOpinionFillsItsColumn) {
    ASSERT_EQ(std::size(kOpinionRows), kAnalystOpinionLabels.size());
    for (const LabelRow& row : kOpinionRows) {
        EXPECT_EQ(Opinion(std::string(row.label) + ":17.25"), std::to_string(row.column) + "=17.25");
    }
}

TEST_F(FundamentalPagesTest, APageKnowsOnlyItsOwnLabels) {
    EXPECT_EQ(KeyStatistics("Mean Target:5\r\nCurrent Qtr.5%"), "");
    EXPECT_EQ(Opinion("Beta:5\r\nAvg. Estimate1.23"), "");
    EXPECT_EQ(Estimates("Beta:5\r\nMean Target:5"), "");
}

TEST_F(FundamentalPagesTest, ScaledValuesAreWholeUnits) {
    struct Row {
        const char* value;
        const char* cell;
    };
    constexpr Row kRows[] = {{"1.50B", "1500000000"},
                             {"12.3M", "12300000"},
                             {"850K", "850000"},
                             {"-4.56M", "-4560000"},
                             {"1.13B", "1130000000"},
                             {"2.675K", "2675"},
                             {"0.07M", "70000"},
                             {" 1.5B ", "1500000000"},
                             {"407.23B", "407230000000"},
                             {"1.5b", ""},
                             {"1.5T", ""},
                             {"1.50", ""},
                             {"N/A", ""},
                             {"0.00", ""},
                             {"0M", "0"},
                             {"0.00M", "0"},
                             {"0.00B", "0"},
                             {"-0.00K", "0"},
                             {"N/AM", ""},
                             {"B", ""},
                             {"", ""},
                             {"1e308B", ""}};
    for (const Row& row : kRows) {
        KeyStatistics(std::string("Market Cap (intraday):") + row.value);
        EXPECT_EQ(Cell(1), row.cell) << row.value;
    }
}

TEST_F(FundamentalPagesTest, PlainValuesAreTheNumberInFront) {
    struct Row {
        const char* value;
        const char* cell;
    };
    constexpr Row kRows[] = {{"1.05", "1.05"}, {"12.30%", "12.3"}, {"-0.5", "-0.5"}, {" 7 ", "7"},
                             {"N/A", ""},      {"0.00", ""},       {"0", ""},        {"", ""},
                             {"$45", ""},      {"1e999", ""},      {"nan", ""},      {"inf", ""}};
    for (const Row& row : kRows) {
        KeyStatistics(std::string("Beta:") + row.value);
        EXPECT_EQ(Cell(30), row.cell) << row.value;
    }
}

TEST_F(FundamentalPagesTest, NaAndZeroLeaveTheCellEmpty) {
    EXPECT_EQ(KeyStatistics("Beta:N/A\r\nForward P/E:0.00\r\nFloat:N/A\r\nRevenue (ttm):0.00"), "");
    EXPECT_EQ(Opinion("Mean Target:N/A\r\nLow Target:0.00"), "");
}

TEST_F(FundamentalPagesTest, FloatIsScaledAndBetaIsPlain) {
    EXPECT_EQ(KeyStatistics("Float:12.3M\r\nBeta:1.05"), "30=1.05 32=12300000");
}

TEST_F(FundamentalPagesTest, LabelsAreMatchedInCapitals) {
    EXPECT_EQ(KeyStatistics("MARKET CAP (INTRADAY):1.50B\r\nbeta:1.05"), "1=1500000000 30=1.05");
    EXPECT_EQ(Opinion("no. OF brokers:12"), "45=12");
    EXPECT_EQ(Estimates("growth est\r\ncurrent qtr.5.0%"), "54=5");
}

TEST_F(FundamentalPagesTest, ALabelStandsAtTheStartOfItsLine) {
    EXPECT_EQ(KeyStatistics("The Beta:1.05\r\n Beta:1.05\r\nBet:1\r\nB"), "");
}

TEST_F(FundamentalPagesTest, TheValueStandsBehindTheLastColon) {
    EXPECT_EQ(KeyStatistics("Beta (as of 4:01pm):1.05"), "30=1.05");
    EXPECT_EQ(KeyStatistics("Beta: 9:1.05"), "30=1.05");
}

TEST_F(FundamentalPagesTest, ALineWithoutAColonIsPassedOver) {
    EXPECT_EQ(KeyStatistics("Beta1.05\r\nBeta"), "");
    EXPECT_EQ(KeyStatistics("Beta:"), "");
}

TEST_F(FundamentalPagesTest, EnterpriseValueIsNotItsRatios) {
    EXPECT_EQ(KeyStatistics("Enterprise Value (3-Nov-06)3:1.20B\r\nEnterprise Value/Revenue (ttm)3:2.41\r\n"
                            "Enterprise Value/EBITDA (ttm)3:9.87"),
              "2=1200000000 8=2.41 9=9.87");
}

TEST_F(FundamentalPagesTest, SharesShortTakesTheLineOfThePriorMonthToo) {
    const std::string thisMonth = "Shares Short (as of 10-Oct-06)3:12.3M\r\n";
    EXPECT_EQ(KeyStatistics(thisMonth + "Shares Short (prior month)3:9.50M\r\n"), "35=9500000 38=9.5");
    EXPECT_EQ(KeyStatistics("Shares Short (prior month)3:9.50M\r\n" + thisMonth), "35=12300000 38=9.5");
    EXPECT_EQ(KeyStatistics(thisMonth + "Shares Short (prior month)3:N/A\r\n"), "35=12300000");
}

TEST_F(FundamentalPagesTest, OfTwoLinesTheLaterOneCounts) {
    EXPECT_EQ(KeyStatistics("Beta:1.05\r\nBeta:2"), "30=2");
}

TEST_F(FundamentalPagesTest, TheFirst180LinesAreRead) {
    std::string blank;
    for (int i = 0; i < 179; ++i) blank += "\r\n";
    EXPECT_EQ(KeyStatistics(blank + "Beta:1.05"), "30=1.05");
    EXPECT_EQ(KeyStatistics(blank + "\r\nBeta:1.05"), "");
    EXPECT_EQ(Estimates(blank + "Growth Est\r\nCurrent Qtr.5%"), "");
}

constexpr std::string_view kEarnings =
    "Earnings EstCurrent Qtr\r\nDec-06Next Qtr\r\nMar-07Current Year\r\nDec-06Next Year\r\nDec-07\r\n"
    "Avg. Estimate1.231.455.6710.12\r\nNo. of Analysts15141818\r\n";
constexpr std::string_view kRevenue =
    "Revenue EstCurrent Qtr\r\nDec-06Next Qtr\r\nMar-07Current Year\r\nDec-06Next Year\r\nDec-07\r\n"
    "Avg. Estimate850.50M1.10B92.3B101.25B\r\n";

TEST_F(FundamentalPagesTest, TheEarningsEstimateFillsFourColumns) {
    EXPECT_EQ(Estimates(kEarnings), "46=1.23 47=1.45 48=5.67 49=10.12");
}

TEST_F(FundamentalPagesTest, TheRevenueEstimateFillsFourColumns) {
    EXPECT_EQ(Estimates(kRevenue), "50=850500000 51=1100000000 52=92300000000 53=101250000000");
}

TEST_F(FundamentalPagesTest, BothTablesStandOnOnePage) {
    EXPECT_EQ(Estimates(std::string(kEarnings).append(kRevenue)),
              "46=1.23 47=1.45 48=5.67 49=10.12 50=850500000 51=1100000000 52=92300000000 53=101250000000");
}

TEST_F(FundamentalPagesTest, AnAverageWithoutItsTableFiveLinesAboveIsIgnored) {
    const std::string average = "Avg. Estimate1.231.455.6710.12\r\n";
    EXPECT_EQ(Estimates(average), "");
    for (const std::string head : {"Earnings EstCurrent Qtr", "Revenue EstCurrent Qtr"}) {
        EXPECT_EQ(Estimates(head + "\r\n\r\n\r\n\r\n" + average), "") << "four lines above";
        EXPECT_EQ(Estimates(head + "\r\n\r\n\r\n\r\n\r\n\r\n" + average), "") << "six lines above";
    }
    EXPECT_EQ(Estimates("Est\r\n\r\n\r\n\r\n\r\n" + average), "");
}

std::string UnderHead(std::string_view head, std::string_view values) {
    return std::string(head).append("\r\n\r\n\r\n\r\n\r\nAvg. Estimate").append(values).append("\r\n");
}

TEST_F(FundamentalPagesTest, EstimatesThatRunTogetherOddly) {
    struct Row {
        const char* values;
        const char* earnings;
        const char* revenue;
    };
    constexpr Row kRows[] = {
        {"-0.12-0.050.101.00", "46=-0.12 47=-0.05 48=0.1 49=1", ""},
        {"1.23", "46=1.23", ""},
        {"1.2", "46=1.2", ""},
        {"1.", "46=1", ""},
        {".", "", ""},
        {"", "", ""},
        {"N/AN/AN/AN/A", "", ""},
        {"0.001.23", "46=0 47=1.23", ""},
        {"0.00M1.00B", "46=0", "50=0 51=1000000000"},
        {"N/A1.23", "", ""},
        {"1.002.003.004.005.006.00", "46=1 47=2 48=3 49=4", ""},
        {"1.5M2.5K3.5B4.5M5.5M", "46=1.5 47=2.5 48=3.5 49=4.5",
         "50=1500000 51=2500 52=3500000000 53=4500000"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Estimates(UnderHead("Earnings EstCurrent Qtr", row.values)), row.earnings) << row.values;
        EXPECT_EQ(Estimates(UnderHead("Revenue EstCurrent Qtr", row.values)), row.revenue) << row.values;
    }
}

TEST_F(FundamentalPagesTest, EachGrowthLabelFillsItsColumn) {
    struct Row {
        std::size_t column;
        const char* label;
    };
    constexpr Row kRows[] = {{54, "Current Qtr."},
                             {55, "Next Qtr."},
                             {56, "This Year"},
                             {57, "Next Year"},
                             {58, "Next 5 Years (per annum)"}};
    ASSERT_EQ(std::size(kRows), kGrowthLabels.size());
    for (const Row& row : kRows) {
        const std::string line = std::string(row.label) + "12.5%10.0%9.1%";
        const std::string cell = std::to_string(row.column) + "=12.5";
        EXPECT_EQ(Estimates("Growth EstIBMIndustry\r\n" + line), cell) << line;
        EXPECT_EQ(Estimates("Growth Est\r\n\r\n" + line), "") << "not the line above: " << line;
        EXPECT_EQ(Estimates(line), "") << "no line above: " << line;
    }
}

TEST_F(FundamentalPagesTest, OnlyTheLabelRightBelowTheGrowthLineCounts) {
    EXPECT_EQ(Estimates("Growth EstIBM\r\nCurrent Qtr.5.0%\r\nNext Qtr.6.0%\r\nThis Year7.0%"), "54=5");
    EXPECT_EQ(Estimates("Growth Est\r\nCurrent Qtr.5.0%\r\nGrowth Est\r\nNext Qtr.6.0%\r\nGrowth Est\r\n"
                        "This Year7.0%\r\nGrowth Est\r\nNext Year-8.0%\r\nGrowth Est\r\n"
                        "Next 5 Years (per annum)9.5%"),
              "54=5 55=6 56=7 57=-8 58=9.5");
}

TEST_F(FundamentalPagesTest, AGrowthEndsAtTheFirstPercentOfSixCharacters) {
    struct Row {
        const char* value;
        const char* filled;
    };
    constexpr Row kRows[] = {{"5%", "54=5"},
                             {"-12.5%", "54=-12.5"},
                             {"123.4%", "54=123.4"},
                             {"1234.5%", ""},
                             {"N/A5.0%", ""},
                             {"%5%", ""},
                             {"0.0%", "54=0"},
                             {"", ""},
                             {"12.5", ""}};
    for (const Row& row : kRows) {
        EXPECT_EQ(Estimates(std::string("Growth Est\r\nCurrent Qtr.") + row.value), row.filled) << row.value;
    }
}

TEST_F(FundamentalPagesTest, HostilePagesFillNothingAndHarmNothing) {
    const std::string pages[] = {
        "",
        "\n",
        std::string(1 << 20, ':'),
        std::string(1 << 20, '.'),
        std::string(1 << 20, '\n'),
        "Beta:" + std::string(1 << 20, 'x'),
        std::string("Beta:\0\0\0", 8),
        "\xFF\xFE\x80:1",
        "Avg. Estimate",
        "Growth Est",
    };
    for (const std::string& page : pages) {
        EXPECT_EQ(KeyStatistics(page), "");
        EXPECT_EQ(Opinion(page), "");
        EXPECT_EQ(Estimates(page), "");
    }
    EXPECT_EQ(Estimates(UnderHead("Earnings EstCurrent Qtr", std::string(1 << 20, '.'))), "");
    EXPECT_EQ(Estimates(UnderHead("Revenue EstCurrent Qtr", "." + std::string(1 << 20, 'B'))), "");
}

TEST_F(FundamentalPagesTest, APageCutAtAnyByteGivesAtMostItsOwnColumns) {
    const std::string whole =
        std::string(kEarnings).append(kRevenue).append("Growth Est\r\nCurrent Qtr.5.0%");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        Estimates(std::string_view(whole).substr(0, length));
        for (std::size_t column = 1; column < 46; ++column) EXPECT_EQ(Cell(column), "") << length;
    }
    EXPECT_EQ(table.ColumnCount(), kFundamentalColumnCount);
}

TEST_F(FundamentalPagesTest, OtherRowsStayAsTheyAre) {
    table.AppendLine("MSFT\t5");
    ParseKeyStatistics("Beta:1.05\r\nMarket Cap (intraday):1B", table, 1);
    EXPECT_EQ(LineText(table, 2).substr(0, 8), "MSFT\t5\t\t");
    EXPECT_EQ(table.Ticker(1), "IBM");
}

}  // namespace
}  // namespace brantlow
