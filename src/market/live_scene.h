// What the replies of the played live sources are made of.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_definition.h"
#include "market/live_sources.h"

namespace brantlow {

using MarketJson = nlohmann::ordered_json;

struct LiveScene {
    const MarketRequest& request;
    const MarketHeaders& headers;
    const MarketData& data;
    Date today;
    std::string path;  // behind the host, where one stands in front
};

// A day as a source tells it.
struct LiveDay {
    std::chrono::sys_days day;
    MarketDay bar;
};

enum class Basis { Raw, Split };

// The days of a ticker in a span, both ends included, oldest first.
std::vector<LiveDay> LiveDaysOf(const LiveScene& scene, const MarketTicker& ticker,
                                std::chrono::sys_days from, std::chrono::sys_days to, Basis basis);

// The ticker that a source's symbol stands for; null for one that the market does not know.
const MarketTicker* TickerOfSymbol(const LiveScene& scene, std::string_view source, std::string_view symbol);
std::string SymbolOf(std::string_view source, std::string_view ticker);

// A split of the practice prices as it falls in these days.
struct LiveSplit {
    std::string ticker;
    std::chrono::sys_days day;
    int newShares;
    int oldShares;
};
std::vector<LiveSplit> LiveSplitsOf(const LiveScene& scene, std::chrono::sys_days from,
                                    std::chrono::sys_days to);

// The query's day of that name in the form YYYY-MM-DD, or the other one.
std::chrono::sys_days DayOfQuery(const LiveScene& scene, std::string_view name,
                                 std::chrono::sys_days otherwise);

// The pieces of a path between its slashes.
std::vector<std::string> PathParts(std::string_view path);

MarketReply JsonReply(const MarketJson& json, int status = 200);

MarketReply AnswerMassive(const LiveScene& scene);
MarketReply AnswerAlpaca(const LiveScene& scene);
MarketReply AnswerYahoo(const LiveScene& scene);
MarketReply AnswerNasdaq(const LiveScene& scene);
MarketReply AnswerTiingo(const LiveScene& scene);
MarketReply AnswerFilings(const LiveScene& scene);

}  // namespace brantlow
