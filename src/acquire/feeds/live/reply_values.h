// Values of a JSON reply as the readers of live sources take them: numbers that may be texts, days in the
// forms that services write, pointers that may lead nowhere.
#pragma once

#include <nlohmann/json.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "acquire/feeds/live/source_rows.h"

namespace brantlow {

// The document of a reply, discarded where it is none, and where it holds more values, or deeper ones, than
// any service sends: a small reply can stand for a document of many times its size.
nlohmann::json ParsedReply(std::string_view bytes);

// What `pointer` leads to within `value`, or null; null too for a JSON null. An empty pointer leads to the
// value itself.
const nlohmann::json* Lead(const nlohmann::json& value, const std::string& pointer);

enum class NumberState { Missing, Bad, Read };

struct ReplyNumber {
    NumberState state = NumberState::Missing;
    double value = 0;
};

// A number, or a text that is one: dollar signs, blanks and thousands commas are left out; an empty text,
// "N/A", "NA" and "--" are missing.
ReplyNumber NumberOf(const nlohmann::json* value);
ReplyNumber NumberOfText(std::string_view text);

// A text, or a number as its shortest text; empty for anything else.
std::string TextOf(const nlohmann::json* value);

// The day of a value in the source's form; nothing when it is none from 1900 to 2199.
std::optional<std::chrono::sys_days> DayOf(const nlohmann::json* value, ReplyDate form, const ZoneRule& zone,
                                           std::chrono::sys_days asked);

}  // namespace brantlow
