#include "acquire/feeds/live/reply_values.h"

#include <cmath>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

using nlohmann::json;
using std::chrono::sys_days;

constexpr std::size_t kIsoLength = 10;
constexpr double kMilliseconds = 1000;

std::optional<sys_days> PlausibleDay(sys_days day) {
    constexpr sys_days kFirst{std::chrono::year{1900} / 1 / 1};
    constexpr sys_days kEnd{std::chrono::year{2200} / 1 / 1};
    return day >= kFirst && day < kEnd ? std::optional(day) : std::nullopt;
}

std::optional<sys_days> DayOfParts(std::string_view year, std::string_view month, std::string_view day) {
    const auto y = WholeNumber(year);
    const auto m = WholeNumber(month);
    const auto d = WholeNumber(day);
    constexpr double kLastYear = 9999;
    constexpr double kMost = 99;
    const bool fits =
        y && m && d && *y >= 0 && *y <= kLastYear && *m >= 0 && *m <= kMost && *d >= 0 && *d <= kMost;
    if (!fits) return std::nullopt;
    const Date date{std::chrono::year{static_cast<int>(*y)}, std::chrono::month{static_cast<unsigned>(*m)},
                    std::chrono::day{static_cast<unsigned>(*d)}};
    return date.ok() ? PlausibleDay(sys_days{date}) : std::nullopt;
}

std::optional<sys_days> IsoDay(std::string_view text) {
    if (text.size() < kIsoLength || text[4] != '-' || text[7] != '-') return std::nullopt;
    return DayOfParts(text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
}

std::optional<sys_days> EpochDay(double seconds, const ZoneRule& zone) {
    constexpr double kFurthest = 1e11;
    if (!(std::abs(seconds) < kFurthest)) return std::nullopt;
    return PlausibleDay(MomentIn(zone, static_cast<EpochSeconds>(std::floor(seconds))).day);
}

// "2022-03-09T05:00:00Z".
std::optional<sys_days> UtcDay(std::string_view text, const ZoneRule& zone) {
    const auto day = IsoDay(text);
    if (!day) return std::nullopt;
    constexpr std::size_t kTimeLength = 5;
    constexpr int kSecondsPerMinute = 60;
    const auto minutes = text.size() > kIsoLength ? ParseTime(text.substr(kIsoLength + 1, kTimeLength)) : 0;
    if (!minutes) return std::nullopt;
    const auto midnight = std::chrono::sys_seconds{*day}.time_since_epoch().count();
    return EpochDay(static_cast<double>(midnight + *minutes * kSecondsPerMinute), zone);
}

std::optional<sys_days> AmericanDay(std::string_view text) {
    const auto parts = SplitAt(text, '/');
    if (parts.size() != 3) return std::nullopt;
    return DayOfParts(parts[2], parts[0], parts[1]);
}

std::optional<sys_days> CompactDay(std::string_view text) {
    constexpr std::size_t kLength = 8;
    if (text.size() != kLength) return std::nullopt;
    return DayOfParts(text.substr(0, 4), text.substr(4, 2), text.substr(6, 2));
}

constexpr std::size_t kMostValues = 1'000'000;
constexpr std::size_t kDeepest = 100;

// Counts brackets and commas outside of texts.
bool IsOfBearableSize(std::string_view bytes) {
    std::size_t values = 0;
    std::size_t depth = 0;
    bool inText = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (inText && c == '\\') {
            ++i;
        } else if (c == '"') {
            inText = !inText;
        } else if (!inText && (c == '[' || c == '{')) {
            ++depth;
            ++values;
        } else if (!inText && (c == ']' || c == '}')) {
            depth -= depth > 0 ? 1 : 0;
        } else if (!inText && c == ',') {
            ++values;
        }
        if (values > kMostValues || depth > kDeepest) return false;
    }
    return true;
}

}  // namespace

json ParsedReply(std::string_view bytes) {
    if (!IsOfBearableSize(bytes)) return json(json::value_t::discarded);
    return json::parse(bytes, nullptr, false);
}

const json* Lead(const json& value, const std::string& pointer) {
    if (pointer.empty()) return &value;
    // Most pointers are one name.
    if (pointer.find_first_of("/~", 1) == std::string::npos) {
        if (!value.is_object()) return nullptr;
        const auto found = value.find(pointer.c_str() + 1);
        return found == value.end() || found->is_null() ? nullptr : &*found;
    }
    const json::json_pointer path(pointer);
    if (!value.contains(path)) return nullptr;
    const json& found = value.at(path);
    return found.is_null() ? nullptr : &found;
}

ReplyNumber NumberOfText(std::string_view text) {
    std::string digits;
    for (const char c : Trim(text)) {
        if (c != '$' && c != ',' && c != ' ') digits += c;
    }
    if (digits.empty() || digits == "--" || EqualIgnoringCase(digits, "N/A") ||
        EqualIgnoringCase(digits, "NA"))
        return {};
    const auto number = WholeNumber(digits);
    return number ? ReplyNumber{NumberState::Read, *number} : ReplyNumber{NumberState::Bad, 0};
}

ReplyNumber NumberOf(const json* value) {
    if (value == nullptr || value->is_null()) return {};
    if (value->is_number()) return {NumberState::Read, value->get<double>()};
    if (value->is_string()) return NumberOfText(value->get_ref<const std::string&>());
    return {NumberState::Bad, 0};
}

std::string TextOf(const json* value) {
    if (value == nullptr) return {};
    if (value->is_string()) return value->get<std::string>();
    if (value->is_number()) return ShortestNumber(value->get<double>());
    return {};
}

std::optional<sys_days> DayOf(const json* value, ReplyDate form, const ZoneRule& zone, sys_days asked) {
    if (form == ReplyDate::Asked) return asked;
    if (value == nullptr) return std::nullopt;
    if (form == ReplyDate::Seconds || form == ReplyDate::Milliseconds) {
        const ReplyNumber number = NumberOf(value);
        if (number.state != NumberState::Read) return std::nullopt;
        return EpochDay(form == ReplyDate::Seconds ? number.value : number.value / kMilliseconds, zone);
    }
    const std::string text = TextOf(value);
    switch (form) {
        case ReplyDate::Iso:
            return IsoDay(text);
        case ReplyDate::IsoUtc:
            return UtcDay(text, zone);
        case ReplyDate::American:
            return AmericanDay(text);
        default:
            return CompactDay(text);
    }
}

}  // namespace brantlow
