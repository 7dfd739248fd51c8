#include "market/live_sources.h"

#include <algorithm>
#include <array>

#include "acquire/feeds/live/source_catalogue.h"
#include "base/text.h"
#include "market/live_scene.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

// Hosts that stand in front of a path, so that one server plays them all.
constexpr std::array<std::string_view, 6> kHostsInPath = {"query1.finance.yahoo.com",
                                                          "query2.finance.yahoo.com",
                                                          "api.nasdaq.com",
                                                          "www.nasdaqtrader.com",
                                                          "www.sec.gov",
                                                          "data.sec.gov"};

std::string BehindHost(std::string_view path) {
    for (const std::string_view host : kHostsInPath) {
        if (path.size() > host.size() + 1 && path.substr(1).starts_with(host) &&
            path[host.size() + 1] == '/') {
            return std::string(path.substr(host.size() + 1));
        }
    }
    return std::string(path);
}

struct LivePathRow {
    std::string_view begin;
    MarketReply (*answer)(const LiveScene&);
};

constexpr std::array<LivePathRow, 13> kLivePaths = {{{"/v2/aggs/", AnswerMassive},
                                                     {"/stocks/v1/splits", AnswerMassive},
                                                     {"/v3/reference/", AnswerMassive},
                                                     {"/v2/stocks/bars", AnswerAlpaca},
                                                     {"/v1/corporate-actions", AnswerAlpaca},
                                                     {"/v8/finance/", AnswerYahoo},
                                                     {"/v7/finance/spark", AnswerYahoo},
                                                     {"/api/calendar/splits", AnswerNasdaq},
                                                     {"/dynamic/SymDir/", AnswerNasdaq},
                                                     {"/tiingo/daily/", AnswerTiingo},
                                                     {"/files/company_tickers", AnswerFilings},
                                                     {"/api/xbrl/", AnswerFilings},
                                                     {"/v1/marketstatus/", AnswerMassive}}};

const SymbolNotation& NotationOf(std::string_view source) {
    static const SourceCatalogue catalogue = LoadSources({});
    return catalogue.Find(source)->notation;
}

}  // namespace

std::vector<LiveDay> LiveDaysOf(const LiveScene& scene, const MarketTicker& ticker, sys_days from,
                                sys_days to, Basis basis) {
    const TradedDays days(ticker, scene.today);
    std::vector<LiveDay> told;
    for (std::size_t i = days.FirstFrom(Date{from}); i < days.Count(); ++i) {
        const sys_days day{days.DateOf(i)};
        if (day > to) break;
        MarketDay bar = days.At(i);
        const double factor = basis == Basis::Split ? days.SplitFactorAt(i) : 1;
        bar.open *= factor;
        bar.high *= factor;
        bar.low *= factor;
        bar.close *= factor;
        bar.volume /= factor;
        told.push_back({day, bar});
    }
    return told;
}

const MarketTicker* TickerOfSymbol(const LiveScene& scene, std::string_view source, std::string_view symbol) {
    const auto ticker = ReadSymbol(NotationOf(source), symbol);
    return ticker ? scene.data.Find(*ticker) : nullptr;
}

std::string SymbolOf(std::string_view source, std::string_view ticker) {
    return SpellSymbol(NotationOf(source), ticker).value_or(std::string(ticker));
}

std::vector<LiveSplit> LiveSplitsOf(const LiveScene& scene, sys_days from, sys_days to) {
    std::vector<LiveSplit> splits;
    for (const PracticeSplit& split : kPracticeSplits) {
        const MarketTicker* ticker = scene.data.Find(split.ticker);
        if (ticker == nullptr) continue;
        const sys_days day = sys_days{split.day} + std::chrono::days{ticker->DaysMoved(scene.today)};
        if (day < from || day > to) continue;
        splits.push_back({std::string(split.ticker), day, split.newShares, split.oldShares});
    }
    return splits;
}

sys_days DayOfQuery(const LiveScene& scene, std::string_view name, sys_days otherwise) {
    const auto day = ParseDate(std::string_view(QueryValue(scene.request.query, name)).substr(0, 10));
    return day ? sys_days{*day} : otherwise;
}

std::vector<std::string> PathParts(std::string_view path) {
    std::vector<std::string> parts;
    for (const std::string_view part : SplitAt(path, '/')) {
        if (!part.empty()) parts.push_back(WithoutPercents(part));
    }
    return parts;
}

MarketReply JsonReply(const MarketJson& json, int status) {
    return {.status = status, .contentType = "application/json", .body = json.dump()};
}

std::optional<MarketReply> AnswerLiveSource(const MarketRequest& request, const MarketHeaders& headers,
                                            const MarketData& data, const Date& today) {
    LiveScene scene{request, headers, data, today, BehindHost(request.path)};
    for (const LivePathRow& row : kLivePaths) {
        if (scene.path.starts_with(row.begin)) return row.answer(scene);
    }
    return std::nullopt;
}

}  // namespace brantlow
