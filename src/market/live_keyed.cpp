// The played sources that want a key: Massive, Alpaca, Tiingo.
#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "market/live_scene.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

constexpr std::int64_t kMilliseconds = 1000;

std::int64_t MidnightMilliseconds(sys_days day) {
    return EpochOf(NewYorkZone(), day, 0) * kMilliseconds;
}

MarketReply MassiveError(int status, std::string_view kind, std::string_view name, std::string_view text) {
    return JsonReply({{"status", kind}, {"request_id", "practice"}, {name, text}}, status);
}

std::optional<MarketReply> MassiveRefusal(const LiveScene& scene) {
    constexpr std::string_view kBearer = "Bearer ";
    const std::string& sent = scene.headers.authorization;
    const std::string key =
        sent.starts_with(kBearer) ? sent.substr(kBearer.size()) : QueryValue(scene.request.query, "apiKey");
    if (key.empty()) return MassiveError(kUnauthorized, "ERROR", "error", "API Key was not provided");
    if (key == kWrongKey || scene.request.fault == "badkey") {
        return MassiveError(kUnauthorized, "ERROR", "error", "Unknown API Key");
    }
    if (scene.request.fault == "limit") {
        return MassiveError(kTooMany, "ERROR", "error",
                            "You've exceeded the maximum requests per minute, please wait or upgrade.");
    }
    if (scene.request.fault == "plan") {
        return MassiveError(kForbidden, "NOT_AUTHORIZED", "message",
                            "Your plan doesn't include this data timeframe. Please upgrade.");
    }
    return std::nullopt;
}

MarketJson MassiveBar(const LiveDay& day, std::int64_t moment) {
    return {{"v", day.bar.volume}, {"o", day.bar.open}, {"c", day.bar.close},
            {"h", day.bar.high},   {"l", day.bar.low},  {"t", moment}};
}

MarketJson MassiveEnvelope(MarketJson rows, bool isAdjusted) {
    MarketJson json = {{"queryCount", rows.size()}, {"resultsCount", rows.size()}, {"adjusted", isAdjusted}};
    if (!rows.empty()) json["results"] = std::move(rows);
    json["status"] = "OK";
    json["request_id"] = "practice";
    return json;
}

MarketReply MassiveGrouped(const LiveScene& scene, const std::string& text) {
    const auto asked = ParseDate(text);
    if (!asked) return MassiveError(400, "ERROR", "error", "could not parse the date");
    const sys_days day{*asked};
    const bool isToday = day >= sys_days{scene.today};
    if (day > sys_days{scene.today} || (isToday && scene.request.fault == "notyet")) {
        return MassiveError(kForbidden, "NOT_AUTHORIZED", "message",
                            "Attempted to request today's data before end of day. Please upgrade.");
    }
    const Basis basis = QueryValue(scene.request.query, "adjusted") == "false" ? Basis::Raw : Basis::Split;
    constexpr int kCloseMinutes = 16 * 60;
    MarketJson rows = MarketJson::array();
    for (const auto& [name, ticker] : scene.data.Tickers()) {
        for (const LiveDay& bar : LiveDaysOf(scene, ticker, day, day, basis)) {
            MarketJson row = {{"T", SymbolOf("massive", name)}};
            row.update(MassiveBar(bar, EpochOf(NewYorkZone(), day, kCloseMinutes) * kMilliseconds));
            rows.push_back(std::move(row));
        }
    }
    return JsonReply(MassiveEnvelope(std::move(rows), basis == Basis::Split));
}

// /v2/aggs/ticker/KO/range/1/day/FROM/TO
MarketReply MassiveRange(const LiveScene& scene, const std::vector<std::string>& parts) {
    constexpr std::size_t kParts = 9;
    if (parts.size() < kParts) return MassiveError(kNotFound, "NOT_FOUND", "message", "page not found");
    const auto from = ParseDate(parts[7]);
    const auto to = ParseDate(parts[8]);
    const Basis basis = QueryValue(scene.request.query, "adjusted") == "false" ? Basis::Raw : Basis::Split;
    MarketJson rows = MarketJson::array();
    const MarketTicker* ticker = TickerOfSymbol(scene, "massive", parts[3]);
    if (ticker != nullptr && from && to) {
        for (const LiveDay& day : LiveDaysOf(scene, *ticker, sys_days{*from}, sys_days{*to}, basis)) {
            rows.push_back(MassiveBar(day, MidnightMilliseconds(day.day)));
        }
    }
    MarketJson json = MassiveEnvelope(std::move(rows), basis == Basis::Split);
    json["ticker"] = parts[3];
    return JsonReply(json);
}

MarketReply MassiveSplits(const LiveScene& scene) {
    const sys_days today{scene.today};
    const sys_days from = DayOfQuery(scene, "execution_date.gte", today - std::chrono::days{365});
    const sys_days to = DayOfQuery(scene, "execution_date.lte", today + std::chrono::days{365});
    MarketJson rows = MarketJson::array();
    for (const LiveSplit& split : LiveSplitsOf(scene, from, to)) {
        rows.push_back({{"id", "practice-" + split.ticker},
                        {"ticker", split.ticker},
                        {"execution_date", FormatIsoDate(Date{split.day})},
                        {"split_from", split.oldShares},
                        {"split_to", split.newShares},
                        {"adjustment_type", "forward_split"}});
    }
    return JsonReply({{"status", "OK"}, {"request_id", "practice"}, {"results", rows}});
}

MarketReply MassiveTickers(const LiveScene& scene) {
    MarketJson rows = MarketJson::array();
    for (const auto& [name, ticker] : scene.data.Tickers()) {
        rows.push_back({{"ticker", SymbolOf("massive", name)},
                        {"name", ticker.about.name},
                        {"market", "stocks"},
                        {"primary_exchange", ticker.about.exchange == "NASDAQ" ? "XNAS" : "XNYS"},
                        {"type", "CS"},
                        {"active", true}});
    }
    return JsonReply(
        {{"status", "OK"}, {"request_id", "practice"}, {"count", rows.size()}, {"results", rows}});
}

// The moment at which a source dates a day: midnight in New York, told in UTC.
std::string UtcMidnight(sys_days day) {
    const auto hours =
        (EpochOf(NewYorkZone(), day, 0) - std::chrono::sys_seconds{day}.time_since_epoch().count()) / 3600;
    return FormatIsoDate(Date{day}) + (hours == 4 ? "T04:00:00Z" : "T05:00:00Z");
}

std::optional<MarketReply> AlpacaRefusal(const LiveScene& scene) {
    const MarketHeaders& headers = scene.headers;
    if (headers.keyId.empty() || headers.keySecret.empty()) {
        return JsonReply({{"message", "unauthorized."}}, kUnauthorized);
    }
    if (headers.keySecret == kWrongKey || scene.request.fault == "badkey") {
        return JsonReply({{"message", "forbidden."}}, kForbidden);
    }
    if (scene.request.fault == "limit") return JsonReply({{"message", "too many requests."}}, kTooMany);
    if (scene.request.fault == "notyet") {
        return JsonReply({{"message", "subscription does not permit querying recent SIP data"}}, kForbidden);
    }
    return std::nullopt;
}

bool IsAlpacaSymbol(std::string_view symbol) {
    return !symbol.empty() && std::all_of(symbol.begin(), symbol.end(),
                                          [](char c) { return (c >= 'A' && c <= 'Z') || c == '.'; });
}

// Pages hold so many bars, counted over all symbols, by symbol and then by day.
MarketReply AlpacaBars(const LiveScene& scene) {
    const std::string_view query = scene.request.query;
    const sys_days today{scene.today};
    const Basis basis = QueryValue(query, "adjustment") == "split" ? Basis::Split : Basis::Raw;
    const auto limit =
        static_cast<std::size_t>(std::clamp(LeadingNumber(QueryValue(query, "limit")), 1.0, 10'000.0));
    auto skipped = static_cast<std::size_t>(std::max(0.0, LeadingNumber(QueryValue(query, "page_token"))));
    const std::size_t first = skipped;
    MarketJson bars = MarketJson::object();
    std::size_t told = 0;
    bool more = false;
    const std::string symbols = QueryValue(query, "symbols");
    for (const std::string_view symbol : SplitAt(symbols, ',')) {
        if (!IsAlpacaSymbol(symbol)) {
            return JsonReply({{"message", "invalid symbol: " + std::string(symbol)}}, 400);
        }
        const MarketTicker* ticker = TickerOfSymbol(scene, "alpaca", symbol);
        if (ticker == nullptr) continue;
        for (const LiveDay& day : LiveDaysOf(scene, *ticker, DayOfQuery(scene, "start", today),
                                             DayOfQuery(scene, "end", today), basis)) {
            if (skipped > 0) {
                --skipped;
                continue;
            }
            more = told == limit;
            if (more) break;
            ++told;
            bars[std::string(symbol)].push_back({{"t", UtcMidnight(day.day)},
                                                 {"o", day.bar.open},
                                                 {"h", day.bar.high},
                                                 {"l", day.bar.low},
                                                 {"c", day.bar.close},
                                                 {"v", day.bar.volume}});
        }
        if (more) break;
    }
    MarketJson json = {{"bars", bars}, {"next_page_token", nullptr}};
    if (more) json["next_page_token"] = std::to_string(first + told);
    return JsonReply(json);
}

MarketReply AlpacaActions(const LiveScene& scene) {
    const sys_days today{scene.today};
    MarketJson splits = MarketJson::array();
    for (const LiveSplit& split :
         LiveSplitsOf(scene, DayOfQuery(scene, "start", today), DayOfQuery(scene, "end", today))) {
        splits.push_back({{"id", "practice-" + split.ticker},
                          {"symbol", split.ticker},
                          {"old_rate", split.oldShares},
                          {"new_rate", split.newShares},
                          {"ex_date", FormatIsoDate(Date{split.day})}});
    }
    MarketJson actions = MarketJson::object();
    if (!splits.empty()) actions["forward_splits"] = splits;
    return JsonReply({{"corporate_actions", actions}, {"next_page_token", nullptr}});
}

std::optional<MarketReply> TiingoRefusal(const LiveScene& scene) {
    constexpr std::string_view kToken = "Token ";
    const std::string& sent = scene.headers.authorization;
    const std::string key =
        sent.starts_with(kToken) ? sent.substr(kToken.size()) : QueryValue(scene.request.query, "token");
    if (key.empty() || key == kWrongKey || scene.request.fault == "badkey") {
        return JsonReply({{"detail", "Invalid token."}}, kUnauthorized);
    }
    if (scene.request.fault == "limit") {
        return JsonReply({{"detail", "Error: You have run over your hourly request allocation."}}, kTooMany);
    }
    if (scene.request.fault == "plan") {
        return MarketReply{.contentType = std::string(kPlainText),
                           .body = "You have run over your 500 symbol look up for this month."};
    }
    return std::nullopt;
}

}  // namespace

MarketReply AnswerMassive(const LiveScene& scene) {
    if (auto refusal = MassiveRefusal(scene)) return std::move(*refusal);
    const std::vector<std::string> parts = PathParts(scene.path);
    if (scene.path.starts_with("/v2/aggs/grouped/")) return MassiveGrouped(scene, parts.back());
    if (scene.path.starts_with("/v2/aggs/ticker/")) return MassiveRange(scene, parts);
    if (scene.path.starts_with("/stocks/v1/splits")) return MassiveSplits(scene);
    if (scene.path == "/v3/reference/splits") return MassiveSplits(scene);
    if (scene.path == "/v3/reference/tickers") return MassiveTickers(scene);
    if (scene.path.starts_with("/v1/marketstatus/")) return JsonReply(MarketJson::array());
    return MassiveError(kNotFound, "NOT_FOUND", "message", "Ticker not found.");
}

MarketReply AnswerAlpaca(const LiveScene& scene) {
    if (auto refusal = AlpacaRefusal(scene)) return std::move(*refusal);
    return scene.path.starts_with("/v2/") ? AlpacaBars(scene) : AlpacaActions(scene);
}

// /tiingo/daily/KO/prices
MarketReply AnswerTiingo(const LiveScene& scene) {
    if (auto refusal = TiingoRefusal(scene)) return std::move(*refusal);
    const std::vector<std::string> parts = PathParts(scene.path);
    constexpr std::size_t kSymbolPart = 2;
    const MarketTicker* ticker =
        parts.size() > kSymbolPart ? TickerOfSymbol(scene, "tiingo", UpperCase(parts[kSymbolPart])) : nullptr;
    if (ticker == nullptr) return JsonReply({{"detail", "Not found."}}, kNotFound);
    const sys_days today{scene.today};
    const sys_days to = DayOfQuery(scene, "endDate", today);
    const std::vector<LiveSplit> splits = LiveSplitsOf(scene, sys_days{}, today);
    MarketJson rows = MarketJson::array();
    for (const LiveDay& day :
         LiveDaysOf(scene, *ticker, DayOfQuery(scene, "startDate", today), to, Basis::Raw)) {
        double factor = 1;
        for (const LiveSplit& split : splits) {
            const bool isIts = split.ticker == ticker->about.ticker && split.day == day.day;
            if (isIts) factor = static_cast<double>(split.newShares) / split.oldShares;
        }
        rows.push_back({{"date", FormatIsoDate(Date{day.day}) + "T00:00:00.000Z"},
                        {"close", day.bar.close},
                        {"high", day.bar.high},
                        {"low", day.bar.low},
                        {"open", day.bar.open},
                        {"volume", day.bar.volume},
                        {"divCash", 0.0},
                        {"splitFactor", factor}});
    }
    return JsonReply(rows);
}

}  // namespace brantlow
