// The three pages of fundamentals of a ticker and what is read from them: each value stands behind a label at
// the start of a line and has a column of its own in an extended fundamentals file.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brantlow {

// The pages, in the order in which they are read for each ticker.
enum class FundamentalPage { KeyStatistics, AnalystOpinion, AnalystEstimates };

struct FundamentalPageRow {
    FundamentalPage page;
    std::string_view path;  // between the quote host's address and the ticker
};

inline constexpr std::array<FundamentalPageRow, 3> kFundamentalPages = {
    {{FundamentalPage::KeyStatistics, "/q/ks?s="},
     {FundamentalPage::AnalystOpinion, "/q/ao?s="},
     {FundamentalPage::AnalystEstimates, "/q/ae?s="}}};

// A page is read up to this line.
inline constexpr std::size_t kMostPageLines = 180;

enum class ValueKind {
    Plain,   // a number, of which 0 stands for none
    Number,  // a number, 0 among them
    Scaled,  // a number and B, M or K for thousands of millions, millions or thousands
};

struct FundamentalLabel {
    std::size_t column;
    std::string_view label;
    ValueKind kind = ValueKind::Plain;
};

inline constexpr std::array<FundamentalLabel, 38> kKeyStatisticsLabels = {{
    {1, "Market Cap (intraday)", ValueKind::Scaled},
    {2, "Enterprise Value", ValueKind::Scaled},
    {3, "Trailing P/E (ttm, intraday)"},
    {4, "Forward P/E"},
    {5, "PEG Ratio (5 yr expected)"},
    {6, "Price/Sales (ttm)"},
    {7, "Price/Book (mrq)"},
    {8, "Enterprise Value/Revenue (ttm)"},
    {9, "Enterprise Value/EBITDA (ttm)"},
    {10, "Profit Margin (ttm)"},
    {11, "Operating Margin (ttm)"},
    {12, "Return on Assets (ttm)"},
    {13, "Return on Equity (ttm)"},
    {14, "Revenue (ttm)", ValueKind::Scaled},
    {15, "Revenue Per Share (ttm)"},
    {16, "Revenue Growth (lfy)"},
    {17, "Gross Profit (ttm)", ValueKind::Scaled},
    {18, "EBITDA (ttm)", ValueKind::Scaled},
    {19, "Net Income Avl to Common (ttm)", ValueKind::Scaled},
    {20, "Diluted EPS (ttm)"},
    {21, "Earnings Growth (lfy)"},
    {22, "Total Cash (mrq)", ValueKind::Scaled},
    {23, "Total Cash Per Share (mrq)"},
    {24, "Total Debt (mrq)", ValueKind::Scaled},
    {25, "Total Debt/Equity (mrq)"},
    {26, "Current Ratio (mrq)"},
    {27, "Book Value Per Share (mrq)"},
    {28, "From Operations (ttm)", ValueKind::Scaled},
    {29, "Free Cashflow (ttm)", ValueKind::Scaled},
    {30, "Beta"},
    {31, "Shares Outstanding", ValueKind::Scaled},
    {32, "Float", ValueKind::Scaled},
    {33, "% Held by Insiders"},
    {34, "% Held by Institutions"},
    // Matches the line of the prior month too; the later line wins.
    {35, "Shares Short", ValueKind::Scaled},
    {36, "Short Ratio"},
    {37, "Short % of Float"},
    {38, "Shares Short (prior month)"},
}};

inline constexpr std::array<FundamentalLabel, 7> kAnalystOpinionLabels = {{
    {39, "Mean Recommendation (this week)"},
    {40, "Mean Recommendation (last week)"},
    {41, "Mean Target"},
    {42, "Median Target"},
    {43, "High Target"},
    {44, "Low Target"},
    {45, "No. of Brokers"},
}};

// The two tables of estimates: their rows of averages stand five lines below the first line of the table's
// head, with four values side by side.
inline constexpr std::string_view kEstimateLabel = "Avg. Estimate";
inline constexpr std::size_t kEstimateHeadLines = 5;
inline constexpr std::size_t kEstimates = 4;

struct EstimateTable {
    std::string_view head;
    std::size_t firstColumn;
    // Numbers have two decimals; a scaled value ends with its letter.
    ValueKind kind;
};

inline constexpr std::array<EstimateTable, 2> kEstimateTables = {
    {{"Earnings EstCurrent Qtr", 46, ValueKind::Number}, {"Revenue EstCurrent Qtr", 50, ValueKind::Scaled}}};

// A growth estimate counts only with this on the line above its label.
inline constexpr std::string_view kGrowthHead = "Growth Est";
// Its "%" stands among this many characters behind the label.
inline constexpr std::size_t kGrowthLength = 6;

inline constexpr std::array<FundamentalLabel, 5> kGrowthLabels = {{
    {54, "Current Qtr.", ValueKind::Number},
    {55, "Next Qtr.", ValueKind::Number},
    {56, "This Year", ValueKind::Number},
    {57, "Next Year", ValueKind::Number},
    {58, "Next 5 Years (per annum)", ValueKind::Number},
}};

}  // namespace brantlow
