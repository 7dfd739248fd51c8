// The played sources without a key: Yahoo, Nasdaq with the symbol directories, the filings of companies.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "market/company.h"
#include "market/live_scene.h"
#include "market/practice_dice.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr int kOpenMinutes = 9 * 60 + 30;

std::int64_t OpeningOf(sys_days day) {
    return EpochOf(NewYorkZone(), day, kOpenMinutes);
}

sys_days DayOfEpoch(const LiveScene& scene, std::string_view name, sys_days otherwise) {
    const auto number = WholeNumber(QueryValue(scene.request.query, name));
    constexpr double kFurthest = 1e11;
    if (!number || !(std::abs(*number) < kFurthest)) return otherwise;
    return std::chrono::floor<days>(
        std::chrono::sys_seconds{std::chrono::seconds{static_cast<std::int64_t>(*number)}});
}

MarketJson YahooMeta(const LiveScene& scene, const std::string& symbol, const std::vector<LiveDay>& told) {
    const sys_days today{scene.today};
    const std::int64_t end = EpochOf(NewYorkZone(), today, UnitedStatesClose(today));
    const sys_days last = told.empty() ? today : told.back().day;
    return {{"currency", "USD"},
            {"symbol", symbol},
            {"exchangeTimezoneName", "America/New_York"},
            {"gmtoffset", OpeningOf(today) - EpochOf(*FindZone("UTC"), today, kOpenMinutes)},
            {"regularMarketTime", EpochOf(NewYorkZone(), last, UnitedStatesClose(last))},
            {"currentTradingPeriod", {{"regular", {{"start", OpeningOf(today)}, {"end", end}}}}}};
}

MarketJson SplitEvents(const LiveScene& scene, const MarketTicker& ticker, sys_days from, sys_days to) {
    MarketJson events = MarketJson::object();
    for (const LiveSplit& split : LiveSplitsOf(scene, from, to)) {
        if (split.ticker != ticker.about.ticker) continue;
        events[std::to_string(OpeningOf(split.day))] = {
            {"date", OpeningOf(split.day)},
            {"numerator", split.newShares},
            {"denominator", split.oldShares},
            {"splitRatio", fmt::format("{}:{}", split.newShares, split.oldShares)}};
    }
    return events;
}

MarketReply YahooChart(const LiveScene& scene, const std::string& symbol) {
    const MarketTicker* ticker = TickerOfSymbol(scene, "yahoo", symbol);
    if (ticker == nullptr) {
        return JsonReply(
            {{"chart",
              {{"result", nullptr},
               {"error",
                {{"code", "Not Found"}, {"description", "No data found, symbol may be delisted"}}}}}},
            kNotFound);
    }
    const sys_days today{scene.today};
    const sys_days from = DayOfEpoch(scene, "period1", today);
    const sys_days to = DayOfEpoch(scene, "period2", today + days{1}) - days{1};
    const std::vector<LiveDay> told = LiveDaysOf(scene, *ticker, from, to, Basis::Split);
    MarketJson moments = MarketJson::array();
    MarketJson quote = {{"open", MarketJson::array()},
                        {"high", MarketJson::array()},
                        {"low", MarketJson::array()},
                        {"close", MarketJson::array()},
                        {"volume", MarketJson::array()}};
    for (const LiveDay& day : told) {
        moments.push_back(OpeningOf(day.day));
        quote["open"].push_back(day.bar.open);
        quote["high"].push_back(day.bar.high);
        quote["low"].push_back(day.bar.low);
        quote["close"].push_back(day.bar.close);
        quote["volume"].push_back(day.bar.volume);
    }
    MarketJson result = {{"meta", YahooMeta(scene, symbol, told)}};
    if (!told.empty()) result["timestamp"] = moments;
    const MarketJson events = SplitEvents(scene, *ticker, from, to);
    if (!events.empty()) result["events"]["splits"] = events;
    result["indicators"]["quote"] = MarketJson::array({quote});
    return JsonReply({{"chart", {{"result", MarketJson::array({result})}, {"error", nullptr}}}});
}

MarketReply YahooSpark(const LiveScene& scene) {
    constexpr std::size_t kMostSymbols = 20;
    constexpr days kFiveDays{8};
    const std::string symbols = QueryValue(scene.request.query, "symbols");
    const std::vector<std::string_view> asked = SplitAt(symbols, ',');
    if (asked.size() > kMostSymbols) {
        return JsonReply({{"spark",
                           {{"result", nullptr},
                            {"error",
                             {{"code", "Bad Request"},
                              {"description", "Number of symbols needs to be less than or equal to 20"}}}}}},
                         400);
    }
    const sys_days today{scene.today};
    MarketJson results = MarketJson::array();
    for (const std::string_view symbol : asked) {
        const MarketTicker* ticker = TickerOfSymbol(scene, "yahoo", symbol);
        if (ticker == nullptr) continue;
        const std::vector<LiveDay> told = LiveDaysOf(scene, *ticker, today - kFiveDays, today, Basis::Split);
        MarketJson moments = MarketJson::array();
        MarketJson closes = MarketJson::array();
        for (const LiveDay& day : told) {
            moments.push_back(OpeningOf(day.day));
            closes.push_back(day.bar.close);
        }
        const std::string name(symbol);
        MarketJson response = {{"meta", YahooMeta(scene, name, told)}, {"timestamp", moments}};
        response["indicators"]["quote"] = MarketJson::array({{{"close", closes}}});
        results.push_back({{"symbol", name}, {"response", MarketJson::array({response})}});
    }
    return JsonReply({{"spark", {{"result", results}, {"error", nullptr}}}});
}

// "7/15/2026".
std::string AmericanDate(sys_days day) {
    const Date date{day};
    return fmt::format("{}/{}/{}", static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       static_cast<int>(date.year()));
}

MarketReply NasdaqSplits(const LiveScene& scene) {
    constexpr days kAround{10};
    const sys_days day = DayOfQuery(scene, "date", sys_days{scene.today});
    MarketJson rows = MarketJson::array();
    for (const LiveSplit& split : LiveSplitsOf(scene, day - kAround, day + kAround)) {
        rows.push_back({{"symbol", split.ticker},
                        {"name", split.ticker},
                        {"ratio", fmt::format("{} : {}", split.newShares, split.oldShares)},
                        {"payableDate", AmericanDate(split.day - days{1})},
                        {"executionDate", AmericanDate(split.day)}});
    }
    MarketJson data = {{"rows", rows.empty() ? MarketJson(nullptr) : rows}};
    return JsonReply(
        {{"data", data}, {"message", nullptr}, {"status", {{"rCode", 200}, {"bCodeMessage", nullptr}}}});
}

// One of the two directories, with a test issue that nobody may take for a share.
MarketReply Directory(const LiveScene& scene, bool isNasdaq) {
    std::string text = isNasdaq
                           ? "Symbol|Security Name|Market Category|Test Issue|Financial Status|Round Lot "
                             "Size|ETF|NextShares\r\n"
                           : "ACT Symbol|Security Name|Exchange|CQS Symbol|ETF|Round Lot Size|Test "
                             "Issue|NASDAQ Symbol\r\n";
    for (const auto& [name, ticker] : scene.data.Tickers()) {
        if ((ticker.about.exchange == "NASDAQ") != isNasdaq) continue;
        text += isNasdaq ? fmt::format("{}|{} - Common Stock|Q|N|N|100|N|N\r\n", name, ticker.about.name)
                         : fmt::format("{0}|{1} Common Stock|N|{0}|N|100|N|{0}\r\n", name, ticker.about.name);
    }
    text += isNasdaq ? "ZXZZT|Practice test issue|G|Y|N|100|N|N\r\n"
                     : "ZTEST|Practice test issue|N|ZTEST|N|100|Y|ZTEST\r\n";
    text += isNasdaq ? "File Creation Time: 1120202621:32|||||||\r\n"
                     : "File Creation Time: 1120202621:32||||||\r\n";
    return {.contentType = std::string(kPlainText), .body = std::move(text)};
}

// The companies of the practice prices, numbered by their order.
std::string CikOf(std::size_t index) {
    constexpr std::size_t kFirst = 1000;
    return fmt::format("{:010}", kFirst + index);
}

const MarketTicker* TickerOfCik(const LiveScene& scene, std::string_view cik) {
    std::size_t index = 0;
    for (const auto& [name, ticker] : scene.data.Tickers()) {
        if (CikOf(index++) == cik) return &ticker;
    }
    return nullptr;
}

MarketReply Companies(const LiveScene& scene) {
    MarketJson companies = MarketJson::object();
    std::size_t index = 0;
    for (const auto& [name, ticker] : scene.data.Tickers()) {
        companies[std::to_string(index)] = {{"cik_str", LeadingNumber(CikOf(index))},
                                            {"ticker", SymbolOf("sec", name)},
                                            {"title", ticker.about.name}};
        ++index;
    }
    return JsonReply(companies);
}

// A year's figure in four quarters, the last of which ended forty-five days ago.
struct ConceptRow {
    std::string_view tag;
    std::string_view unit;
    double (*yearly)(const Company&);
    bool isOnDay;
};

constexpr std::array<ConceptRow, 6> kConcepts = {
    {{"us-gaap/EarningsPerShareDiluted", "USD/shares", [](const Company& c) { return c.earningsPerShare; },
      false},
     {"us-gaap/Revenues", "USD", [](const Company& c) { return SalesOf(c); }, false},
     {"us-gaap/NetIncomeLoss", "USD", [](const Company& c) { return EarningsOf(c); }, false},
     {"us-gaap/WeightedAverageNumberOfDilutedSharesOutstanding", "shares",
      [](const Company& c) { return 4 * c.shares; }, false},
     {"us-gaap/CommonStockDividendsPerShareDeclared", "USD/shares",
      [](const Company& c) { return c.dividend; }, false},
     {"dei/EntityCommonStockSharesOutstanding", "shares", [](const Company& c) { return c.shares; }, true}}};

MarketJson ConceptFacts(const ConceptRow& row, const Company& company, sys_days today) {
    constexpr days kQuarter{91};
    constexpr days kFiledAfter{20};
    constexpr int kQuarters = 4;
    sys_days end = today - days{45};
    MarketJson facts = MarketJson::array();
    if (row.isOnDay) {
        facts.push_back({{"end", FormatIsoDate(Date{end})},
                         {"val", row.yearly(company)},
                         {"form", "10-Q"},
                         {"filed", FormatIsoDate(Date{end + kFiledAfter})}});
        return facts;
    }
    for (int i = 0; i < kQuarters; ++i, end -= kQuarter) {
        facts.push_back({{"start", FormatIsoDate(Date{end - kQuarter + days{1}})},
                         {"end", FormatIsoDate(Date{end})},
                         {"val", row.yearly(company) / kQuarters},
                         {"form", "10-Q"},
                         {"filed", FormatIsoDate(Date{end + kFiledAfter})}});
    }
    return facts;
}

// /api/xbrl/companyconcept/CIK0000001000/us-gaap/Revenues.json
MarketReply Concept(const LiveScene& scene) {
    const std::vector<std::string> parts = PathParts(scene.path);
    constexpr std::size_t kParts = 6;
    const MarketReply missing{.status = kNotFound, .body = "<html><head><title>404</title></head></html>"};
    if (parts.size() != kParts || parts[3].size() < 3 || !parts[5].ends_with(".json")) return missing;
    const MarketTicker* ticker = TickerOfCik(scene, parts[3].substr(3));
    const auto company = ticker == nullptr ? std::nullopt : CompanyOf(*ticker, scene.today);
    if (!company) return missing;
    const std::string tag = parts[4] + "/" + parts[5].substr(0, parts[5].size() - 5);
    for (const ConceptRow& row : kConcepts) {
        if (row.tag != tag) continue;
        MarketJson units = MarketJson::object();
        units[std::string(row.unit)] = ConceptFacts(row, *company, sys_days{scene.today});
        return JsonReply({{"cik", LeadingNumber(parts[3].substr(3))}, {"tag", parts[5]}, {"units", units}});
    }
    return missing;
}

}  // namespace

MarketReply AnswerYahoo(const LiveScene& scene) {
    if (scene.request.fault == "limit") {
        return {.status = kTooMany, .contentType = std::string(kPlainText), .body = "Too Many Requests\r\n"};
    }
    if (scene.path.starts_with("/v7/finance/spark")) return YahooSpark(scene);
    const std::vector<std::string> parts = PathParts(scene.path);
    return YahooChart(scene, parts.back());
}

MarketReply AnswerNasdaq(const LiveScene& scene) {
    if (scene.request.fault == "limit") {
        return {.status = kForbidden, .body = "<html><head><title>Access Denied</title></head></html>"};
    }
    if (scene.path == "/dynamic/SymDir/nasdaqlisted.txt") return Directory(scene, true);
    if (scene.path == "/dynamic/SymDir/otherlisted.txt") return Directory(scene, false);
    if (scene.path == "/api/calendar/splits") return NasdaqSplits(scene);
    return {.status = kNotFound, .body = "<html><head><title>404</title></head></html>"};
}

MarketReply AnswerFilings(const LiveScene& scene) {
    if (scene.request.fault == "limit") {
        return {.status = kForbidden,
                .body = "<html><head><title>Request Rate Threshold Exceeded</title></head></html>"};
    }
    if (scene.headers.userAgent.find('@') == std::string::npos || scene.request.fault == "badkey") {
        return {.status = kForbidden,
                .body =
                    "<html><head><title>Your Request Originates from an Undeclared Automated "
                    "Tool</title></head></html>"};
    }
    return scene.path == "/files/company_tickers.json" ? Companies(scene) : Concept(scene);
}

}  // namespace brantlow
