#include "acquire/feeds/live/source_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "acquire/feeds/live/company_facts.h"
#include "base/numbers.h"
#include "shell/run_report.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr days kCheckedDays{30};
// A source of whole days is asked for so many of them, until one has rows.
constexpr int kMostDaysBack = 5;
constexpr std::size_t kShownRows = 3;

std::string RowsText(std::size_t rows) {
    return Counted(rows, "row", "rows");
}

std::string RowsText(std::size_t rows, sys_days first, sys_days last) {
    return fmt::format("{}, {} to {}", RowsText(rows), FormatIsoDate(first), FormatIsoDate(last));
}

std::string PricesText(const SourceBar& bar) {
    return fmt::format("{} {} {} {} {}", ShortestNumber(bar.open), ShortestNumber(bar.high),
                       ShortestNumber(bar.low), ShortestNumber(bar.close), ShortestNumber(bar.volume));
}

// The first and the last of `count` rows.
template <typename Line>
std::vector<std::string> Ends(std::size_t count, const Line& line) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isShown = i < kShownRows || i + kShownRows >= count;
        if (isShown) lines.push_back(line(i));
        if (!isShown && i == kShownRows) lines.emplace_back("...");
    }
    return lines;
}

using Symbols = std::map<std::string, SourceBars, std::less<>>;

std::vector<std::string> MarketEnds(const Symbols& bySymbol) {
    std::vector<std::pair<std::string, SourceBar>> bars;
    for (const auto& [symbol, symbolBars] : bySymbol) {
        if (!symbolBars.bars.empty()) bars.emplace_back(symbol, symbolBars.bars.front());
    }
    return Ends(bars.size(), [&](std::size_t i) {
        return fmt::format("{} {} {}", bars[i].first, FormatIsoDate(bars[i].second.day),
                           PricesText(bars[i].second));
    });
}

void CheckMarketDay(SourceClient& client, Capability capability, sys_days day, SourceChecked& checked) {
    checked.outcome = {.result = SourceResult::NoData, .words = {}};
    for (int i = 0; i < kMostDaysBack; ++i, day = WeekdayBefore(day)) {
        const SourceReply reply = client.Ask({capability, {}, day, day});
        const bool isEmpty = reply.outcome.Done() && reply.rows == 0;
        if (isEmpty || reply.outcome.result == SourceResult::NotYetPublished) continue;
        checked.outcome = reply.outcome;
        checked.words = RowsText(reply.rows, day, day);
        checked.rows = MarketEnds(reply.bySymbol);
        return;
    }
}

void CheckDays(SourceClient& client, Capability capability, const std::string& ticker, sys_days to,
               SourceChecked& checked) {
    if (client.Source().FormOf(capability).tickers == 0) {
        return CheckMarketDay(client, capability, to, checked);
    }
    const TickerAnswer answer = AskTicker(client, capability, ticker, to - kCheckedDays, to);
    checked.outcome = answer.outcome;
    if (!answer.outcome.Done()) return;
    const auto& bars = answer.bars.bars;
    checked.words = RowsText(bars.size(), bars.front().day, bars.back().day);
    checked.rows = Ends(
        bars.size(), [&](std::size_t i) { return FormatIsoDate(bars[i].day) + ' ' + PricesText(bars[i]); });
}

void CheckSplits(SourceClient& client, sys_days to, SourceChecked& checked) {
    SourceReply reply = client.Ask({Capability::Splits, {}, to - kCheckedDays, to});
    checked.outcome = reply.outcome;
    std::vector<SourceSplit>& splits = reply.splits;
    checked.words = RowsText(splits.size());
    if (!reply.outcome.Done() || splits.empty()) return;
    std::stable_sort(splits.begin(), splits.end(),
                     [](const SourceSplit& a, const SourceSplit& b) { return a.day < b.day; });
    checked.words = RowsText(splits.size(), splits.front().day, splits.back().day);
    checked.rows = Ends(splits.size(), [&](std::size_t i) {
        return fmt::format("{} {} {} for 1", FormatIsoDate(splits[i].day), splits[i].symbol,
                           ShortestNumber(splits[i].factor));
    });
}

void CheckSymbols(SourceClient& client, SourceChecked& checked) {
    const SourceReply reply = client.Ask({Capability::Symbols, {}, {}, {}});
    const auto& symbols = reply.symbols;
    checked.outcome = reply.outcome;
    checked.words = fmt::format("{} symbols", symbols.size());
    checked.rows = Ends(symbols.size(), [&](std::size_t i) {
        return fmt::format("{} {}, {}", symbols[i].ticker, symbols[i].name, symbols[i].exchange);
    });
}

void CheckFundamentals(SourceWorld& world, SourceClient& client, const std::string& ticker,
                       SourceChecked& checked) {
    CompanyFacts facts(world, client);
    const CompanyYear year = facts.YearOf(ticker);
    checked.outcome = year.outcome;
    if (!year.outcome.Done()) return;
    checked.words =
        "twelve months to " + (year.end ? FormatIsoDate(*year.end) : std::string("an unknown day"));
    const auto add = [&](std::string_view name, const std::optional<double>& value, int decimals) {
        if (!value) return;
        checked.rows.push_back(fmt::format("{} {}", name, ShortestNumber(RoundDecimals(*value, decimals))));
    };
    // As the cells of a table hold them; sums of filed quarters carry the digits of their addition.
    add("earnings a share", year.earningsPerShare, kShareDecimals);
    add("sales", year.sales, 0);
    add("shares", year.shares, 0);
    add("dividends a share", year.dividends, kShareDecimals);
}

void Ask(SourceWorld& world, SourceClient& client, const std::string& ticker, SourceChecked& checked) {
    const sys_days newest = NewestEndedDay(*client.Source().zone, EpochOf(world.session.clock));
    switch (checked.capability) {
        case Capability::Splits:
            return CheckSplits(client, newest, checked);
        case Capability::Symbols:
            return CheckSymbols(client, checked);
        case Capability::Fundamentals:
            return CheckFundamentals(world, client, ticker, checked);
        default:
            return CheckDays(client, checked.capability, ticker, newest, checked);
    }
}

}  // namespace

SourceChecked CheckCapability(SourceWorld& world, SourceClient& client, Capability capability,
                              const std::string& ticker) {
    SourceChecked checked;
    checked.capability = capability;
    Ask(world, client, ticker, checked);
    if (!checked.outcome.Done()) {
        checked.words = OutcomeText(checked.outcome);
        checked.rows.clear();
    }
    checked.address = client.LastAddress();
    checked.replyBegin = client.LastReplyBegin();
    return checked;
}

std::string CheckedText(const SourceChecked& checked) {
    std::string text = fmt::format(
        "{}: {}\n", kCapabilityNames.at(static_cast<std::size_t>(checked.capability)), checked.words);
    for (const std::string& row : checked.rows) text += "    " + row + '\n';
    if (checked.outcome.Done()) return text;
    if (!checked.address.empty()) text += "    asked: " + checked.address + '\n';
    if (!checked.replyBegin.empty()) text += "    reply: " + checked.replyBegin + '\n';
    return text;
}

}  // namespace brantlow
