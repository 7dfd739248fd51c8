#include "market/plain_pages.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

#include "acquire/version/version_check.h"
#include "base/text.h"
#include "market/html.h"
#include "market/quote_of_day.h"
#include "splits/split_calendar.h"

namespace brantlow {

namespace {

// A row of the split calendar.
struct CalendarSplit {
    Date day;
    std::string ticker;
    std::string name;
    int newShares;
    int oldShares;
};

// A split that is only for show, with the days from today to it.
struct ShownSplit {
    int fromToday;
    std::string_view ticker;
    std::string_view name;
    int newShares;
    int oldShares;
};

constexpr std::array<ShownSplit, 4> kShownSplits = {{{-2, "QXTA", "Quexta Mills", 2, 1},
                                                     {0, "QXTB", "Quextab Lines", 3, 2},
                                                     {3, "QXTC", "Quextac Stores", 1, 4},
                                                     {6, "QXTD", "Quextad Foods", 5, 4}}};

// The last day from Monday to Friday before `day`.
Date WorkdayBefore(Date day) {
    constexpr unsigned kFriday = 5;
    do {
        day = AddDays(day, -1);
    } while (std::chrono::weekday{std::chrono::sys_days{day}}.iso_encoding() > kFriday);
    return day;
}

// The day under which a split of the practice prices is listed: its own for as long as a log takes it, so
// that an update on any later day finds it too, that of the last workday.
Date ListedDay(const Date& splitDay, const Date& today) {
    return splitDay < AddDays(today, -kDaysInSplitLog) ? WorkdayBefore(today) : splitDay;
}

std::vector<CalendarSplit> SplitsOf(const MarketData& data, const Date& today) {
    std::vector<CalendarSplit> splits;
    for (const PracticeSplit& split : kPracticeSplits) {
        const MarketTicker* ticker = data.Find(split.ticker);
        if (ticker == nullptr) continue;
        splits.push_back({ListedDay(AddDays(split.day, ticker->DaysMoved(today)), today),
                          ticker->about.ticker, ticker->about.name, split.newShares, split.oldShares});
    }
    for (const ShownSplit& split : kShownSplits) {
        splits.push_back({AddDays(today, split.fromToday), std::string(split.ticker), std::string(split.name),
                          split.newShares, split.oldShares});
    }
    std::stable_sort(splits.begin(), splits.end(),
                     [](const CalendarSplit& a, const CalendarSplit& b) { return a.day < b.day; });
    return splits;
}

// The date is the last cell before the ticker, and no cell but the ratio holds a hyphen.
std::string SplitRow(const CalendarSplit& split) {
    const std::string date = FormatDate(split.day).substr(0, std::string_view("mm/dd").size());
    return fmt::format(
        "<tr><td align=middle>{0}</td><td><a href=\"/q?s={1}&d=t\">{1}</a></td><td>{2}</td>"
        "<td align=middle>{3}-{4}</td></tr>\n",
        date, Escaped(split.ticker), Escaped(split.name), split.newShares, split.oldShares);
}

std::string Paragraph(std::string_view label, std::string_view text) {
    return fmt::format("<p>{}: {}</p>\n", label, Escaped(text));
}

std::string QuoteParagraphs(const std::string& ticker, const MarketData& data, const Date& today) {
    const QuoteOfDay quote = MakeQuote(ticker, data, today);
    if (!quote.last) return "<p>The practice market has no prices for this ticker.</p>\n";
    return Paragraph("Name", *quote.name) + Paragraph("Exchange", *quote.exchange) +
           Paragraph("Trade date", FormatDate(*quote.day)) +
           Paragraph("Last price", fmt::format("{:.3f}", *quote.last)) +
           Paragraph("Change", fmt::format("{:+.3f}", *quote.change)) +
           Paragraph("Volume", fmt::format("{:.0f}", *quote.volume));
}

// The day's quotes with links to the tickers: what a page of the market shows.
std::string QuoteRows(const MarketData& data, const Date& today) {
    std::string rows = TableRow({"Ticker", "Name", "Last price", "Change", "Volume"});
    for (const auto& [ticker, rest] : data.Tickers()) {
        const QuoteOfDay quote = MakeQuote(ticker, data, today);
        if (!quote.last) continue;
        rows += TableRow({fmt::format("<a href=\"/q?s={0}&d=t\">{0}</a>", Escaped(ticker)),
                          Escaped(*quote.name), fmt::format("{:.3f}", *quote.last),
                          fmt::format("{:+.3f}", *quote.change), fmt::format("{:.0f}", *quote.volume)});
    }
    return "<table>\n" + rows +
           "</table>\n<p><a href=\"/c/s.html\">Stock splits</a> <a href=\"/alerts\">Alert requests</a></p>\n";
}

// "BRK.B" of "/p/B/BRK.B.html": pages of one ticker lie in a folder named by its first character.
std::string TickerOfPath(std::string_view path) {
    constexpr std::string_view kEnding = ".html";
    if (!path.ends_with(kEnding)) return {};
    path.remove_suffix(kEnding.size());
    const std::size_t slash = path.rfind('/');
    if (slash < 2 || slash == std::string_view::npos || path[slash - 2] != '/') return {};
    const std::string_view name = path.substr(slash + 1);
    return name.starts_with(path[slash - 1]) ? UpperCase(WithoutPercents(name)) : std::string();
}

}  // namespace

std::string UpdatePage() {
    return "<html><head><title>Brantlow</title></head><body>" + RunningVersion() + "</body></html>\n";
}

std::string SplitCalendarPage(const MarketData& data, const Date& today) {
    std::string rows;
    for (const CalendarSplit& split : SplitsOf(data, today)) rows += SplitRow(split);
    return HtmlPage("Stock splits", "<table>\n" + rows + "</table>\n");
}

std::string AlertPage(const AlertList& alerts) {
    std::string rows = TableRow({"Address", "Ticker"});
    for (const StockAlert& alert : alerts.All()) {
        rows += TableRow({Escaped(alert.address), Escaped(alert.ticker)});
    }
    return HtmlPage("Alert requests", "<table>\n" + rows + "</table>\n");
}

std::string TickerOfAddress(const MarketRequest& request) {
    for (const std::string_view name : {"s", "symbol", "tk"}) {
        std::string ticker = UpperCase(QueryValue(request.query, name));
        if (!ticker.empty()) return ticker;
    }
    return TickerOfPath(request.path);
}

std::string ResearchPage(const MarketRequest& request, const MarketData& data, const Date& today) {
    // A page shows this much of what was asked for.
    constexpr std::size_t kShown = 200;
    std::string body = Paragraph("Page", request.path.substr(0, kShown));
    const std::string ticker = TickerOfAddress(request);
    if (!ticker.empty()) {
        body += Paragraph("Ticker", std::string_view(ticker).substr(0, kShown));
        body += QuoteParagraphs(ticker, data, today);
    } else {
        body += QuoteRows(data, today);
    }
    const std::string title = "Practice market";
    return HtmlPage(ticker.empty() ? title : ticker + " - " + title, body);
}

}  // namespace brantlow
