// What the tests of the practice market share: the shipped prices on a fixed day.
//
// Saturday 2026-11-21. The week before it holds the last days of the shipped prices that a quote can be made
// of; NFLX's 2015-07-15 (its split) falls on 2026-11-18, A's 2018-02-02 on 2026-11-20.
#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "market/alert_list.h"
#include "market/market_answer.h"
#include "market/market_data.h"
#include "support/source_folder.h"

namespace brantlow {

inline Date Day(int year, unsigned month, unsigned day) {
    return Date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
}

inline const Date kSaturday = Day(2026, 11, 21);

inline Path ShippedPrices() {
    return SourceFolder() / "assets" / "practice";
}

inline const MarketData& ShippedData() {
    static const MarketData data = MarketData::Read(ShippedPrices());
    return data;
}

inline MarketReply Ask(std::string_view target, const Date& today = kSaturday) {
    AlertList alerts;
    return Answer(target, ShippedData(), today, alerts);
}

inline std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
    return lines;
}

// The fields of a line; a separator between double quotes belongs to its field, quotes are kept.
inline std::vector<std::string> FieldsOfLine(std::string_view line, char separator) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"') quoted = !quoted;
        if (c == separator && !quoted) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

}  // namespace brantlow
