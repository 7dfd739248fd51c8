// The replies of Yahoo's chart and spark: parallel arrays beside a list of moments, in a nested and a flat
// form.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "acquire/feeds/live/reply_values.h"
#include "base/numbers.h"

namespace brantlow {

namespace {

using nlohmann::json;

constexpr int kPriceDecimals = 4;

// Currencies that are told in hundredths.
struct MinorCurrency {
    std::string_view code;
    std::string_view whole;
};
constexpr std::array<MinorCurrency, 4> kMinorCurrencies = {
    {{"GBp", "GBP"}, {"GBX", "GBP"}, {"ZAc", "ZAR"}, {"ILA", "ILS"}}};
constexpr double kMinorFactor = 0.01;

// A chart in either form.
struct Chart {
    const json* meta = nullptr;
    const json* moments = nullptr;
    const json* quote = nullptr;  // the object that holds open, high, low, close, volume
    const json* splits = nullptr;
};

const json* ArrayIn(const json* object, const char* name) {
    if (object == nullptr || !object->is_object()) return nullptr;
    const auto found = object->find(name);
    return found != object->end() && found->is_array() ? &*found : nullptr;
}

Chart NestedChart(const json& result) {
    return {Lead(result, "/meta"), ArrayIn(&result, "timestamp"), Lead(result, "/indicators/quote/0"),
            Lead(result, "/events/splits")};
}

Chart FlatChart(const json& result) {
    return {&result, ArrayIn(&result, "timestamp"), &result, nullptr};
}

// How the prices and moments of one chart are to be taken.
struct ChartScale {
    double factor = 1;
    std::string currency;
    const ZoneRule* zone = nullptr;
    std::optional<int> offset;  // seconds, where the zone is not known here
    std::optional<EpochSeconds> sessionEnd;
    std::optional<EpochSeconds> lastTrade;
};

std::optional<EpochSeconds> MomentOf(const json* value) {
    const ReplyNumber number = NumberOf(value);
    constexpr double kFurthest = 1e11;
    if (number.state != NumberState::Read || !(std::abs(number.value) < kFurthest)) return std::nullopt;
    return static_cast<EpochSeconds>(number.value);
}

ChartScale ScaleOf(const ReplyScene& scene, const Chart& chart) {
    ChartScale scale;
    scale.zone = scene.source.zone;
    if (chart.meta == nullptr) return scale;
    scale.currency = TextOf(Lead(*chart.meta, "/currency"));
    for (const MinorCurrency& minor : kMinorCurrencies) {
        if (minor.code != scale.currency) continue;
        scale.currency = minor.whole;
        scale.factor = kMinorFactor;
        break;
    }
    if (const json* name = Lead(*chart.meta, "/exchangeTimezoneName")) {
        scale.zone = FindZone(TextOf(name));
        const auto offset = MomentOf(Lead(*chart.meta, "/gmtoffset"));
        if (scale.zone == nullptr) scale.offset = static_cast<int>(offset.value_or(0));
    }
    scale.sessionEnd = MomentOf(Lead(*chart.meta, "/currentTradingPeriod/regular/end"));
    scale.lastTrade = MomentOf(Lead(*chart.meta, "/regularMarketTime"));
    return scale;
}

ZoneMoment LocalMoment(const ChartScale& scale, EpochSeconds at) {
    return scale.zone != nullptr ? MomentIn(*scale.zone, at) : MomentAt(at, *scale.offset);
}

bool IsLiveDay(const ReplyScene& scene, const ChartScale& scale, std::chrono::sys_days day) {
    if (scale.sessionEnd && LocalMoment(scale, *scale.sessionEnd).day == day)
        return scene.now < *scale.sessionEnd;
    const ZoneRule& zone = scale.zone != nullptr ? *scale.zone : *scene.source.zone;
    return !IsOver(zone, day, scene.now);
}

// The entry of one of the parallel arrays; missing behind its end.
ReplyNumber EntryOf(const Chart& chart, const char* name, std::size_t index) {
    const json* values = ArrayIn(chart.quote, name);
    return values == nullptr || index >= values->size() ? ReplyNumber{} : NumberOf(&(*values)[index]);
}

void TakeChartBar(const ReplyScene& scene, const Chart& chart, const ChartScale& scale, std::size_t index,
                  bool closesOnly, SourceBars& ticker) {
    const auto at = MomentOf(&(*chart.moments)[index]);
    if (!at) return ticker.Refuse("a row has no date that can be read");
    constexpr std::array<const char*, 4> kNames = {"open", "high", "low", "close"};
    std::array<double, 4> prices{};
    for (std::size_t i = closesOnly ? kNames.size() - 1 : 0; i < kNames.size(); ++i) {
        const ReplyNumber number = EntryOf(chart, kNames[i], index);
        if (number.state == NumberState::Bad)
            return ticker.Refuse(std::string("its ") + kNames[i] + " is no number");
        // A day without trade is written with nulls.
        if (number.state == NumberState::Missing) return;
        if (!std::isfinite(number.value) || std::abs(number.value) > kHighestPrice) {
            return ticker.Refuse("a price is none");
        }
        prices[i] = RoundDecimals(number.value * scale.factor, kPriceDecimals);
    }
    const ReplyNumber volume = EntryOf(chart, "volume", index);
    if (volume.state == NumberState::Bad) return ticker.Refuse("its volume is no number");
    SourceBar bar{LocalMoment(scale, *at).day, prices[0], prices[1], prices[2], prices[3], volume.value};
    bar.isLive = IsLiveDay(scene, scale, bar.day);
    if (bar.isLive && scale.lastTrade) bar.minutes = LocalMoment(scale, *scale.lastTrade).minutes;
    AddBar(scene, bar, ticker);
}

void TakeChartSplits(const Chart& chart, const ChartScale& scale, const std::string& symbol,
                     SourceBars& ticker) {
    if (chart.splits == nullptr || !chart.splits->is_object()) return;
    for (const auto& [moment, split] : chart.splits->items()) {
        const auto at = MomentOf(Lead(split, "/date"));
        const ReplyNumber bought = NumberOf(Lead(split, "/numerator"));
        const ReplyNumber given = NumberOf(Lead(split, "/denominator"));
        const auto factor = Divide(bought.value, given.value);
        if (at && factor && *factor > 0)
            ticker.splits.push_back({symbol, LocalMoment(scale, *at).day, *factor});
    }
}

void TakeChart(const ReplyScene& scene, const Chart& chart, const std::string& symbol, bool closesOnly,
               SourceReply& reply) {
    SourceBars& ticker = reply.bySymbol[symbol];
    const ChartScale scale = ScaleOf(scene, chart);
    ticker.currency = scale.currency;
    const std::size_t count = chart.moments == nullptr ? 0 : chart.moments->size();
    for (std::size_t i = 0; i < count; ++i) TakeChartBar(scene, chart, scale, i, closesOnly, ticker);
    TakeChartSplits(chart, scale, symbol, ticker);
    reply.rows += count;
}

const json* FirstResult(const json& document, const char* pointer) {
    const json* results = Lead(document, pointer);
    return results != nullptr && results->is_array() && !results->empty() ? &results->front() : nullptr;
}

void TakeSparkResults(const ReplyScene& scene, const json& results, SourceReply& reply) {
    for (const json& result : results) {
        const std::string symbol = TextOf(Lead(result, "/symbol"));
        const json* response = Lead(result, "/response/0");
        if (!symbol.empty() && response != nullptr) {
            TakeChart(scene, NestedChart(*response), symbol, true, reply);
        }
    }
}

}  // namespace

void ReadYahooChart(const ReplyScene& scene, std::string_view bytes, SourceReply& reply) {
    const json document = ParsedReply(bytes);
    if (document.is_discarded() || !document.is_object()) {
        return ChangeFormat(reply, "the reply is no whole JSON");
    }
    if (const json* flat = document.contains(scene.symbol) ? &document.at(scene.symbol) : nullptr) {
        return TakeChart(scene, FlatChart(*flat), scene.symbol, false, reply);
    }
    const json* results = Lead(document, "/chart/result");
    if (Lead(document, "/chart") == nullptr || (results != nullptr && !results->is_array())) {
        return ChangeFormat(reply, "the reply lacks its chart");
    }
    const json* result = FirstResult(document, "/chart/result");
    if (result == nullptr) return;
    if (!result->is_object()) return ChangeFormat(reply, "the reply lacks its chart");
    TakeChart(scene, NestedChart(*result), scene.symbol, false, reply);
}

void ReadYahooSpark(const ReplyScene& scene, std::string_view bytes, SourceReply& reply) {
    const json document = ParsedReply(bytes);
    if (document.is_discarded() || !document.is_object()) {
        return ChangeFormat(reply, "the reply is no whole JSON");
    }
    if (const json* results = Lead(document, "/spark/result"); results != nullptr && results->is_array()) {
        return TakeSparkResults(scene, *results, reply);
    }
    if (Lead(document, "/spark") != nullptr) return;
    for (const auto& [symbol, result] : document.items()) {
        if (ArrayIn(&result, "timestamp") == nullptr) continue;
        TakeChart(scene, FlatChart(result), symbol, true, reply);
    }
    if (reply.bySymbol.empty() && !document.empty()) ChangeFormat(reply, "the reply lacks its closes");
}

}  // namespace brantlow
