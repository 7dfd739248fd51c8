#include "store/columns.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace brantlow {
namespace {

TEST(Columns, QuoteCatalogueRowByRow) {
    struct Row {
        const char* header;
        int width;
        const char* picture;
    };
    constexpr Row kRows[35] = {{"Ticker Symbol", 1300, ""},
                               {"Last Price", 1100, "#####0.000"},
                               {"Change", 1100, "#####0.000"},
                               {"Change (%)", 1100, "#####0.000"},
                               {"Ask Price", 1100, "#####0.000"},
                               {"Bid Price", 1100, "#####0.000"},
                               {"Low Price", 1100, "#####0.000"},
                               {"High Price", 1100, "#####0.000"},
                               {"Volume", 1200, ""},
                               {"Open Price", 1100, "#####0.000"},
                               {"Previous Close", 1400, "#####0.000"},
                               {"52 Week Low", 1300, "#####0.000"},
                               {"52 Week High", 1300, "#####0.000"},
                               {"Name", 2000, ""},
                               {"Exchange", 1000, ""},
                               {"Trade Date", 1300, ""},
                               {"Trade Time", 1300, ""},
                               {"P/E ttm.", 1000, "#####0.000"},
                               {"P/E est.", 1000, "#########0.00"},
                               {"EPS ttm.", 1000, "#####0.000"},
                               {"EPS est.", 1000, "#####0.000"},
                               {"SPS", 1000, "#########0.00000"},
                               {"E/S", 1000, "#########0.00000"},
                               {"PEG", 1000, "#####0.000"},
                               {"P/S", 1000, "#####0.000"},
                               {"Dividend", 1000, "#####0.000"},
                               {"Yield (%)", 1000, "#####0.000"},
                               {"Dividend Date", 1400, ""},
                               {"X Dividend Date", 1600, ""},
                               {"Market Cap (M)", 1400, "######0.###"},
                               {"Annual Sales (M)", 1600, "#########0.00"},
                               {"Annual Earnings (M)", 1800, "#########0.000"},
                               {"Annual Earnings est. (M)", 1900, "#########0.000"},
                               {"High Alarm", 1000, ""},
                               {"Low Alarm", 1000, ""}};
    ASSERT_EQ(kQuoteColumns.size(), 35U);
    std::string header;
    for (std::size_t i = 0; i < kQuoteColumns.size(); ++i) {
        EXPECT_EQ(kQuoteColumns[i].header, kRows[i].header) << i;
        EXPECT_EQ(kQuoteColumns[i].width, kRows[i].width) << kRows[i].header;
        EXPECT_EQ(kQuoteColumns[i].picture, kRows[i].picture) << kRows[i].header;
        EXPECT_EQ(FindQuoteColumn(kRows[i].header), &kQuoteColumns[i]);
        header += (i ? "\t" : "") + std::string(kRows[i].header);
    }
    EXPECT_EQ(QuoteHeader(), header);
    EXPECT_EQ(FindQuoteColumn("last price"), nullptr);
    EXPECT_EQ(FindQuoteColumn(""), nullptr);
}

TEST(Columns, EvaluationHeader) {
    EXPECT_EQ(EvaluationHeader(),
              "Ticker Symbol\tCondition 1\tCondition 2\tCondition 3\tCondition 4\tCondition 5\tCondition 6\t"
              "Condition 7\tCondition 8\tCondition 9\tCondition 10");
    EXPECT_EQ(kEvaluationColumns.size(), 11U);
}

struct FundamentalRow {
    const char* name;
    int width;
};

// The widths by hand: a letter takes 100 twips in a name of more than 13 letters, else 125.
constexpr FundamentalRow kFundamentals[59] = {{"Symbol", 0},
                                              {"Market Cap (intraday)", 2100},
                                              {"Enterprise Value", 1600},
                                              {"Trailing P/E (ttm, intraday)", 2800},
                                              {"Forward P/E", 1375},
                                              {"PEG Ratio (5 yr expected)", 2500},
                                              {"Price/Sales (ttm)", 1700},
                                              {"Price/Book (mrq)", 1600},
                                              {"Enterprise Value/Revenue (ttm)", 3000},
                                              {"Enterprise Value/EBITDA (ttm)", 2900},
                                              {"Profit Margin %(ttm)", 2000},
                                              {"Operating Margin %(ttm)", 2300},
                                              {"Return on Assets %(ttm)", 2300},
                                              {"Return on Equity %(ttm)", 2300},
                                              {"Revenue (ttm)", 1625},
                                              {"Revenue Per Share (ttm)", 2300},
                                              {"Revenue Growth %(lfy)", 2100},
                                              {"Gross Profit (ttm)", 1800},
                                              {"EBITDA (ttm)", 1500},
                                              {"Net Income Avl to Common (ttm)", 3000},
                                              {"Diluted EPS (ttm)", 1700},
                                              {"Earnings Growth %(lfy)", 2200},
                                              {"Total Cash (mrq)", 1600},
                                              {"Total Cash Per Share (mrq)", 2600},
                                              {"Total Debt (mrq)", 1600},
                                              {"Total Debt/Equity (mrq)", 2300},
                                              {"Current Ratio (mrq)", 1900},
                                              {"Book Value Per Share (mrq)", 2600},
                                              {"CashFlow From Operations (ttm)", 3000},
                                              {"Free Cashflow (ttm)", 1900},
                                              {"Beta", 1400},
                                              {"Shares Outstanding", 1800},
                                              {"Float", 1400},
                                              {"Held By Insiders (%)", 2000},
                                              {"Held by Institutions (%)", 2400},
                                              {"Shares Short", 1500},
                                              {"Short Ratio", 1375},
                                              {"Short % of Float", 1600},
                                              {"Shares Short (prior month)", 2600},
                                              {"Mean Recommendation (this week)", 3100},
                                              {"Mean Recommendation (last week)", 3100},
                                              {"Mean Price Target", 1700},
                                              {"Median Price Target", 1900},
                                              {"High Price Target", 1700},
                                              {"Low Price Target", 1600},
                                              {"No. of Brokers", 1400},
                                              {"Avg. EPS Estimate (current quarter)", 3500},
                                              {"Avg. EPS Estimate (next quarter)", 3200},
                                              {"Avg. EPS Estimate (current year)", 3200},
                                              {"Avg. EPS Estimate (next year)", 2900},
                                              {"Avg. Rev. Estimate (current quarter)", 3600},
                                              {"Avg. Rev. Estimate (next quarter)", 3300},
                                              {"Avg. Rev. Estimate (current year)", 3300},
                                              {"Avg. Rev. Estimate (next year)", 3000},
                                              {"Growth Estimate (% current quarter)", 3500},
                                              {"Growth Estimate (% next quarter)", 3200},
                                              {"Growth Estimate (% current year)", 3200},
                                              {"Growth Estimate (% next year)", 2900},
                                              {"Growth Estimate (% next 5 years per annum)", 4200}};

TEST(Columns, FundamentalNamesAndWidthsRowByRow) {
    const std::string header = EfqHeader();
    const auto names = SplitAt(header, '\t');
    ASSERT_EQ(names.size(), 59U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(names[i], kFundamentals[i].name) << i;
        EXPECT_EQ(FundamentalWidth(i), kFundamentals[i].width) << names[i];
    }
    EXPECT_EQ(FundamentalWidth(59), 0);
}

TEST(Columns, FundamentalHeaderIsTheJoinOfItsThreePieces) {
    EXPECT_TRUE(EfqHeader1.starts_with("Symbol\t"));
    EXPECT_TRUE(EfqHeader1.ends_with("\tCashFlow From Operations (ttm)\t"));
    EXPECT_TRUE(EfqHeader2.starts_with("Free Cashflow (ttm)\t"));
    EXPECT_TRUE(EfqHeader2.ends_with("\tAvg. Rev. Estimate (next year)\t"));
    EXPECT_TRUE(EfqHeader3.starts_with("Growth Estimate (% current quarter)\t"));
    EXPECT_TRUE(EfqHeader3.ends_with("\tGrowth Estimate (% next 5 years per annum)"));
    EXPECT_EQ(EfqHeader(), std::string(EfqHeader1) + std::string(EfqHeader2) + std::string(EfqHeader3));
    EXPECT_EQ(SplitAt(EfqHeader1, '\t').size(), 30U);
    EXPECT_EQ(SplitAt(EfqHeader2, '\t').size(), 26U);
    EXPECT_EQ(SplitAt(EfqHeader3, '\t').size(), 5U);
}

}  // namespace
}  // namespace brantlow
