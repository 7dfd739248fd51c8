#include "market/fundamental_pages.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <optional>
#include <span>

#include "market/company.h"
#include "market/html.h"
#include "market/practice_dice.h"
#include "market/quote_of_day.h"

namespace brantlow {

namespace {

constexpr double kPercent = 100;

enum class Form { Scaled, Plain, Percent, Whole };

std::string Written(double value, Form form) {
    switch (form) {
        case Form::Scaled:
            return ScaledNumber(value);
        case Form::Percent:
            return fmt::format("{:.2f}%", value);
        case Form::Whole:
            return fmt::format("{:.0f}", value);
        case Form::Plain:
            break;
    }
    return fmt::format("{:.2f}", value);
}

// A line of a page: its label and its figure, infinite where the figure cannot be told.
struct Statistic {
    std::string_view label;
    Form form;
    double (*figure)(const Company&);
};

// What stays for good with a company, and what changes by the day.
double Trait(const Company& company, std::string_view word, double low, double high) {
    return Between(company.ticker, word, low, high);
}
double Mood(const Company& company, std::string_view word, double low, double high) {
    return Between(company.tickerAndDay, word, low, high);
}

double Debt(const Company& c) {
    return c.debtPerShare * c.shares;
}
double Cash(const Company& c) {
    return c.cashPerShare * c.shares;
}
double EnterpriseValue(const Company& c) {
    return MarketValue(c) + Debt(c) - Cash(c);
}
double GrossMargin(const Company& c) {
    return Trait(c, "gross margin", 0.35, 0.7);
}
double OperatingMargin(const Company& c) {
    return GrossMargin(c) * Trait(c, "operating share", 0.3, 0.7);
}
double Ebitda(const Company& c) {
    return SalesOf(c) * (OperatingMargin(c) + Trait(c, "depreciation", 0.02, 0.08));
}
double OperatingCash(const Company& c) {
    return Ebitda(c) * Trait(c, "cash conversion", 0.6, 0.95);
}
double FloatShares(const Company& c) {
    return c.shares * Trait(c, "float", 0.8, 0.99);
}
double SharesShort(const Company& c) {
    return FloatShares(c) * Mood(c, "short", 0.005, 0.06);
}
double SharesShortBefore(const Company& c) {
    return FloatShares(c) * Trait(c, "short before", 0.005, 0.06);
}

constexpr std::array<Statistic, 38> kKeyStatistics = {
    {{"Market Cap (intraday)", Form::Scaled, MarketValue},
     {"Enterprise Value", Form::Scaled, EnterpriseValue},
     {"Trailing P/E (ttm, intraday)", Form::Plain,
      [](const Company& c) { return c.price / c.earningsPerShare; }},
     {"Forward P/E", Form::Plain, [](const Company& c) { return c.price / c.earningsEstimate; }},
     {"PEG Ratio (5 yr expected)", Form::Plain, [](const Company& c) { return c.pegRatio; }},
     {"Price/Sales (ttm)", Form::Plain, [](const Company& c) { return c.price / c.salesPerShare; }},
     {"Price/Book (mrq)", Form::Plain, [](const Company& c) { return c.price / c.bookPerShare; }},
     {"Enterprise Value/Revenue (ttm)", Form::Plain,
      [](const Company& c) { return EnterpriseValue(c) / SalesOf(c); }},
     {"Enterprise Value/EBITDA (ttm)", Form::Plain,
      [](const Company& c) { return EnterpriseValue(c) / Ebitda(c); }},
     {"Profit Margin (ttm)", Form::Percent,
      [](const Company& c) { return kPercent * c.earningsPerShare / c.salesPerShare; }},
     {"Operating Margin (ttm)", Form::Percent,
      [](const Company& c) { return kPercent * OperatingMargin(c); }},
     {"Return on Assets (ttm)", Form::Percent,
      [](const Company& c) {
          return kPercent * c.earningsPerShare / (c.bookPerShare + c.debtPerShare + c.salesPerShare / 2);
      }},
     {"Return on Equity (ttm)", Form::Percent,
      [](const Company& c) { return kPercent * c.earningsPerShare / c.bookPerShare; }},
     {"Revenue (ttm)", Form::Scaled, SalesOf},
     {"Revenue Per Share (ttm)", Form::Plain, [](const Company& c) { return c.salesPerShare; }},
     {"Revenue Growth (lfy)", Form::Percent,
      [](const Company& c) { return Trait(c, "sales growth", -4, 18); }},
     {"Gross Profit (ttm)", Form::Scaled, [](const Company& c) { return SalesOf(c) * GrossMargin(c); }},
     {"EBITDA (ttm)", Form::Scaled, Ebitda},
     {"Net Income Avl to Common (ttm)", Form::Scaled, EarningsOf},
     {"Diluted EPS (ttm)", Form::Plain, [](const Company& c) { return c.earningsPerShare; }},
     {"Earnings Growth (lfy)", Form::Percent,
      [](const Company& c) { return Trait(c, "past growth", -10, 30); }},
     {"Total Cash (mrq)", Form::Scaled, Cash},
     {"Total Cash Per Share (mrq)", Form::Plain, [](const Company& c) { return c.cashPerShare; }},
     {"Total Debt (mrq)", Form::Scaled, Debt},
     {"Total Debt/Equity (mrq)", Form::Plain,
      [](const Company& c) { return c.debtPerShare / c.bookPerShare; }},
     {"Current Ratio (mrq)", Form::Plain, [](const Company& c) { return Trait(c, "current ratio", 0.8, 3); }},
     {"Book Value Per Share (mrq)", Form::Plain, [](const Company& c) { return c.bookPerShare; }},
     {"From Operations (ttm)", Form::Scaled, OperatingCash},
     {"Free Cashflow (ttm)", Form::Scaled,
      [](const Company& c) { return OperatingCash(c) * Trait(c, "free cash", 0.4, 0.9); }},
     {"Beta", Form::Plain, [](const Company& c) { return Trait(c, "beta", 0.4, 1.9); }},
     {"Shares Outstanding", Form::Scaled, [](const Company& c) { return c.shares; }},
     {"Float", Form::Scaled, FloatShares},
     {"% Held by Insiders", Form::Percent, [](const Company& c) { return Trait(c, "insiders", 0.1, 12); }},
     {"% Held by Institutions", Form::Percent,
      [](const Company& c) { return Trait(c, "institutions", 40, 90); }},
     {"Shares Short", Form::Scaled, SharesShort},
     {"Short Ratio", Form::Plain, [](const Company& c) { return Mood(c, "short ratio", 0.5, 6); }},
     {"Short % of Float", Form::Percent,
      [](const Company& c) { return kPercent * SharesShort(c) / FloatShares(c); }},
     {"Shares Short (prior month)", Form::Scaled, SharesShortBefore}}};

double Target(const Company& c) {
    return c.price * Mood(c, "target", 0.95, 1.25);
}

constexpr std::array<Statistic, 7> kAnalystOpinion = {
    {{"Mean Recommendation (this week)", Form::Plain,
      [](const Company& c) { return Mood(c, "recommendation", 1.5, 3.4); }},
     {"Mean Recommendation (last week)", Form::Plain,
      [](const Company& c) { return Mood(c, "recommendation before", 1.5, 3.4); }},
     {"Mean Target", Form::Plain, Target},
     {"Median Target", Form::Plain, [](const Company& c) { return Target(c) * 0.99; }},
     {"High Target", Form::Plain, [](const Company& c) { return Target(c) * 1.3; }},
     {"Low Target", Form::Plain, [](const Company& c) { return Target(c) * 0.7; }},
     {"No. of Brokers", Form::Whole, [](const Company& c) { return Trait(c, "brokers", 4, 38); }}}};

// The company of a page's ticker; none for an unknown ticker and an index.
std::optional<Company> FindCompany(std::string_view ticker, const MarketData& data, const Date& today) {
    const MarketTicker* known = data.Find(ticker);
    return known == nullptr ? std::nullopt : CompanyOf(*known, today);
}

std::string FigureText(const std::optional<Company>& company, const Statistic& row) {
    if (!company) return std::string(kMissing);
    const double value = row.figure(*company);
    return std::isfinite(value) ? Written(value, row.form) : std::string(kMissing);
}

std::string StatisticsTable(const std::optional<Company>& company, std::span<const Statistic> rows) {
    std::string table = "<table>\n";
    for (const Statistic& row : rows) {
        table += TableRow({std::string(row.label) + ':', FigureText(company, row)});
    }
    return table + "</table>\n";
}

std::string PageTitle(std::string_view title, std::string_view ticker) {
    return std::string(title).append(" of ").append(ticker);
}

// The spans that estimates are made for, with a company's share of a year's figure and its growth in years.
struct EstimateSpan {
    double shareOfYear;
    double years;
};
constexpr std::array<EstimateSpan, 4> kSpans = {{{0.25, 0.25}, {0.25, 0.5}, {1, 0.5}, {1, 1.5}}};

double Estimate(const Company& company, double yearFigure, const EstimateSpan& span) {
    return yearFigure * span.shareOfYear * std::pow(1 + company.growth / kPercent, span.years);
}

// An estimate's rows: its heads take five lines of the page's text, and the averages stand on the next.
std::string EstimateTable(std::string_view head, const std::array<std::string, 4>& averages) {
    std::string table = "<table>\n";
    table +=
        TableRow({head, "Current Qtr<br>Jun", "Next Qtr<br>Sep", "Current Year<br>Dec", "Next Year<br>Dec"});
    table += TableRow({"Avg. Estimate", averages[0], averages[1], averages[2], averages[3]});
    return table + "</table>\n";
}

std::string EarningsTable(const std::optional<Company>& company) {
    std::array<std::string, 4> averages;
    averages.fill(std::string(kMissing));
    for (std::size_t i = 0; company && i < averages.size(); ++i) {
        averages[i] = Written(Estimate(*company, company->earningsPerShare, kSpans[i]), Form::Plain);
    }
    return EstimateTable("Earnings Est", averages);
}

std::string RevenueTable(const std::optional<Company>& company) {
    std::array<std::string, 4> averages;
    averages.fill(std::string(kMissing));
    for (std::size_t i = 0; company && i < averages.size(); ++i) {
        averages[i] = Written(Estimate(*company, SalesOf(*company), kSpans[i]), Form::Scaled);
    }
    return EstimateTable("Revenue Est", averages);
}

constexpr std::array<std::string_view, 5> kGrowthLabels = {"Current Qtr.", "Next Qtr.", "This Year",
                                                           "Next Year", "Next 5 Years (per annum)"};

// "Growth Est" stands above each label: the figure is looked for below such a line only, and has to have its
// per cent sign within six characters.
std::string GrowthTable(const std::optional<Company>& company) {
    constexpr double kWidest = 20;
    std::string table = "<table>\n";
    for (const std::string_view label : kGrowthLabels) {
        const bool longTerm = label == kGrowthLabels.back();
        std::string growth(kMissing);
        if (company) {
            growth = fmt::format("{:.1f}%", longTerm ? company->growth : Trait(*company, label, -5, kWidest));
        }
        table += TableRow({"Growth Est"}) + TableRow({label, growth});
    }
    return table + "</table>\n";
}

}  // namespace

std::string KeyStatisticsPage(std::string_view ticker, const MarketData& data, const Date& today) {
    return HtmlPage(PageTitle("Key statistics", ticker),
                    StatisticsTable(FindCompany(ticker, data, today), kKeyStatistics));
}

std::string AnalystOpinionPage(std::string_view ticker, const MarketData& data, const Date& today) {
    return HtmlPage(PageTitle("Analyst opinion", ticker),
                    StatisticsTable(FindCompany(ticker, data, today), kAnalystOpinion));
}

std::string AnalystEstimatesPage(std::string_view ticker, const MarketData& data, const Date& today) {
    const std::optional<Company> company = FindCompany(ticker, data, today);
    return HtmlPage(PageTitle("Analyst estimates", ticker),
                    EarningsTable(company) + RevenueTable(company) + GrowthTable(company));
}

}  // namespace brantlow
