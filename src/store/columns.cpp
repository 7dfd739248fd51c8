#include "store/columns.h"

#include <algorithm>

#include "base/text.h"

namespace brantlow {

const std::string_view EfqHeader1 =
    "Symbol\tMarket Cap (intraday)\tEnterprise Value\tTrailing P/E (ttm, intraday)\tForward P/E\t"
    "PEG Ratio (5 yr expected)\tPrice/Sales (ttm)\tPrice/Book (mrq)\tEnterprise Value/Revenue (ttm)\t"
    "Enterprise Value/EBITDA (ttm)\tProfit Margin %(ttm)\tOperating Margin %(ttm)\t"
    "Return on Assets %(ttm)\tReturn on Equity %(ttm)\tRevenue (ttm)\tRevenue Per Share (ttm)\t"
    "Revenue Growth %(lfy)\tGross Profit (ttm)\tEBITDA (ttm)\tNet Income Avl to Common (ttm)\t"
    "Diluted EPS (ttm)\tEarnings Growth %(lfy)\tTotal Cash (mrq)\tTotal Cash Per Share (mrq)\t"
    "Total Debt (mrq)\tTotal Debt/Equity (mrq)\tCurrent Ratio (mrq)\tBook Value Per Share (mrq)\t"
    "CashFlow From Operations (ttm)\t";

const std::string_view EfqHeader2 =
    "Free Cashflow (ttm)\tBeta\tShares Outstanding\tFloat\tHeld By Insiders (%)\t"
    "Held by Institutions (%)\tShares Short\tShort Ratio\tShort % of Float\tShares Short (prior month)\t"
    "Mean Recommendation (this week)\tMean Recommendation (last week)\tMean Price Target\t"
    "Median Price Target\tHigh Price Target\tLow Price Target\tNo. of Brokers\t"
    "Avg. EPS Estimate (current quarter)\tAvg. EPS Estimate (next quarter)\t"
    "Avg. EPS Estimate (current year)\tAvg. EPS Estimate (next year)\t"
    "Avg. Rev. Estimate (current quarter)\tAvg. Rev. Estimate (next quarter)\t"
    "Avg. Rev. Estimate (current year)\tAvg. Rev. Estimate (next year)\t";

const std::string_view EfqHeader3 =
    "Growth Estimate (% current quarter)\tGrowth Estimate (% next quarter)\t"
    "Growth Estimate (% current year)\tGrowth Estimate (% next year)\t"
    "Growth Estimate (% next 5 years per annum)";

namespace {

constexpr std::string_view NameOf(const QuoteColumn& column) {
    return column.header;
}
constexpr std::string_view NameOf(std::string_view name) {
    return name;
}

template <typename Columns>
std::string JoinedHeader(const Columns& columns) {
    std::string line;
    for (const auto& column : columns) line.append(line.empty() ? "" : "\t").append(NameOf(column));
    return line;
}

}  // namespace

std::string EfqHeader() {
    return std::string(EfqHeader1).append(EfqHeader2).append(EfqHeader3);
}

std::string QuoteHeader() {
    return JoinedHeader(kQuoteColumns);
}

std::string EvaluationHeader() {
    return JoinedHeader(kEvaluationColumns);
}

int FundamentalWidth(std::size_t column) {
    constexpr int kShortName = 13;
    // Twips a letter in a long and in a short name: a twelfth of 1200 and of 1500.
    constexpr int kLongNameLetter = 1200 / 12;
    constexpr int kShortNameLetter = 1500 / 12;
    constexpr int kNarrowNameWidth = 1400;
    const std::string header = EfqHeader();
    const auto names = SplitAt(header, '\t');
    if (column < 1 || column >= names.size()) return 0;
    const std::string_view name = names[column];
    if (name == "Beta" || name == "Float") return kNarrowNameWidth;
    const int length = static_cast<int>(name.size());
    return length * (length > kShortName ? kLongNameLetter : kShortNameLetter);
}

const QuoteColumn* FindQuoteColumn(std::string_view header) {
    const auto column = std::find_if(kQuoteColumns.begin(), kQuoteColumns.end(),
                                     [&](const QuoteColumn& c) { return c.header == header; });
    return column == kQuoteColumns.end() ? nullptr : &*column;
}

}  // namespace brantlow
