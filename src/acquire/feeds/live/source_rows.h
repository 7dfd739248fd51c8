// What a live source's replies hold once they are read: days by the source's symbol, splits, symbols. Nothing
// here knows how a reply was written.
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "acquire/feeds/live/source_definition.h"

namespace brantlow {

struct SourceBar {
    std::chrono::sys_days day;
    double open = 0;
    double high = 0;
    double low = 0;
    double close = 0;
    double volume = 0;
    // Minutes since midnight at the exchange of a live bar's last trade.
    int minutes = -1;
    bool isLive = false;  // the day is not over
};

struct SourceSplit {
    std::string symbol;
    std::chrono::sys_days day;  // the first on the new basis
    double factor = 0;          // new shares by old shares
};

struct SourceBars {
    std::vector<SourceBar> bars;  // oldest first once finished
    std::vector<SourceSplit> splits;
    std::string currency;          // empty where the source tells none
    std::size_t withoutPrice = 0;  // rows whose close is not above 0
    // Why nothing of it may be stored; empty when it may.
    std::string refusal;

    void Refuse(std::string reason) {
        if (refusal.empty()) refusal = std::move(reason);
    }
};

struct SourceSymbol {
    std::string ticker;  // in the table's spelling
    std::string name;
    std::string exchange;
    std::string kind;  // "stock", "etf" or "other"
};

// One reply, or several that follow one another.
struct SourceReply {
    SourceOutcome outcome;
    std::map<std::string, SourceBars, std::less<>> bySymbol;
    std::vector<SourceSplit> splits;
    std::vector<SourceSymbol> symbols;
    std::size_t rows = 0;
    // The next page: a whole address, or the value of the paging parameter; empty at the end.
    std::string next;
};

// What the reader of a reply has to know of its request.
struct ReplyScene {
    const SourceDefinition& source;
    const CapabilityForm& form;
    // In the source's spelling, for a request of one; empty otherwise.
    std::string symbol;
    std::chrono::sys_days from;
    std::chrono::sys_days to;
    EpochSeconds now = 0;
};

// Reads a reply of status 200 that no error rule caught into `reply`, behind what it holds already.
void ReadReply(const ReplyScene& scene, std::string_view bytes, SourceReply& reply);

// The readers in code.
void ReadYahooChart(const ReplyScene& scene, std::string_view bytes, SourceReply& reply);
void ReadYahooSpark(const ReplyScene& scene, std::string_view bytes, SourceReply& reply);
void ReadSymbolDirectory(const ReplyScene& scene, std::string_view bytes, SourceReply& reply);

// Prices above this, and volumes above that, are none.
inline constexpr double kHighestPrice = 1e9;
inline constexpr double kHighestVolume = 1e14;

// Adds a bar, or refuses the ticker: a day after that of `now`, a price or volume that cannot be one. A close
// that is not above 0 is counted and passed over; a day outside the asked span is passed over.
void AddBar(const ReplyScene& scene, const SourceBar& bar, SourceBars& ticker);

// Sorts the days of a ticker whose pages are all read. Of two rows of a day the last one stands where
// `lastStands`; otherwise, and where more than one row in ten has no price, the ticker is refused.
void FinishBars(SourceBars& ticker, bool lastStands);

// A source's own rows: no failure, no rows of that shape.
void ChangeFormat(SourceReply& reply, std::string_view reason);

}  // namespace brantlow
