#include "acquire/feeds/live/source_outcome.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

#include "base/text.h"

namespace brantlow {

namespace {

struct ResultRow {
    SourceResult result;
    std::string_view name;
};

constexpr std::array<ResultRow, 13> kResults = {{{SourceResult::Rows, "rows"},
                                                 {SourceResult::NoData, "no data"},
                                                 {SourceResult::NotYetPublished, "not yet published"},
                                                 {SourceResult::UnknownSymbol, "unknown symbol"},
                                                 {SourceResult::NoKey, "no key"},
                                                 {SourceResult::BadKey, "bad key"},
                                                 {SourceResult::NotInPlan, "not in the plan"},
                                                 {SourceResult::NotEntitled, "not entitled to this symbol"},
                                                 {SourceResult::RateLimited, "rate limited"},
                                                 {SourceResult::ChangedFormat, "changed format"},
                                                 {SourceResult::Network, "network"},
                                                 {SourceResult::Refused, "refused"},
                                                 {SourceResult::Stopped, "stopped"}}};

struct ScopeRow {
    LimitScope scope;
    std::string_view name;
    double seconds;
};

constexpr std::array<ScopeRow, 4> kScopes = {{{LimitScope::Minute, "minute", 60},
                                              {LimitScope::Hour, "hour", 3600},
                                              {LimitScope::Day, "day", 86'400},
                                              {LimitScope::Month, "month", 2'592'000}}};

// Parameters whose value is a key, in lower case.
constexpr std::array<std::string_view, 4> kKeyParameters = {"apikey", "api_token", "token", "key"};

bool HoldsKey(std::string_view parameter) {
    const auto isParameter = [&](std::string_view name) { return EqualIgnoringCase(name, parameter); };
    return std::any_of(kKeyParameters.begin(), kKeyParameters.end(), isParameter);
}

}  // namespace

bool IsAnswer(SourceResult result) {
    return result == SourceResult::Rows || result == SourceResult::NoData ||
           result == SourceResult::UnknownSymbol || result == SourceResult::NotYetPublished;
}

bool EndsRun(const SourceOutcome& outcome) {
    switch (outcome.result) {
        case SourceResult::NoKey:
        case SourceResult::BadKey:
        case SourceResult::NotInPlan:
        case SourceResult::RateLimited:
        case SourceResult::Stopped:
            return true;
        default:
            return false;
    }
}

std::string_view ResultName(SourceResult result) {
    return kResults.at(static_cast<std::size_t>(result)).name;
}

std::optional<SourceResult> ResultOfName(std::string_view name) {
    for (const ResultRow& row : kResults) {
        if (row.name == name) return row.result;
    }
    return std::nullopt;
}

std::string_view ScopeName(LimitScope scope) {
    return kScopes.at(static_cast<std::size_t>(scope)).name;
}

std::optional<LimitScope> ScopeOfName(std::string_view name) {
    for (const ScopeRow& row : kScopes) {
        if (row.name == name) return row.scope;
    }
    return std::nullopt;
}

double SecondsOf(LimitScope scope) {
    return kScopes.at(static_cast<std::size_t>(scope)).seconds;
}

std::string MomentText(double epochSeconds) {
    const auto moment = static_cast<std::time_t>(epochSeconds);
    const std::time_t now = std::time(nullptr);
    std::tm at{};
    std::tm today{};
    localtime_r(&moment, &at);
    localtime_r(&now, &today);
    const std::string time = fmt::format("{:02}:{:02}", at.tm_hour, at.tm_min);
    if (at.tm_yday == today.tm_yday && at.tm_year == today.tm_year) return time;
    constexpr int kTmYear = 1900;
    return fmt::format("{:04}-{:02}-{:02} {}", at.tm_year + kTmYear, at.tm_mon + 1, at.tm_mday, time);
}

std::string OutcomeText(const SourceOutcome& outcome) {
    std::string text(ResultName(outcome.result));
    if (outcome.result == SourceResult::RateLimited) {
        text += fmt::format(" (by the {}", ScopeName(outcome.scope));
        if (outcome.until > 0) text += fmt::format(", not before {}", MomentText(outcome.until));
        text += ')';
    }
    if (!outcome.words.empty()) text.append(": ").append(outcome.words);
    return text;
}

std::string ServerWords(std::string_view text) {
    constexpr std::size_t kLongest = 200;
    std::string line;
    for (const char c : text) {
        const bool isBlank = static_cast<unsigned char>(c) <= ' ' || c == '\x7f';
        if (isBlank && (line.empty() || line.back() == ' ')) continue;
        if (line.size() == kLongest) {
            line += "...";
            break;
        }
        line += isBlank ? ' ' : c;
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}

std::string MaskedAddress(std::string_view address) {
    const std::size_t query = address.find('?');
    if (query == std::string_view::npos) return std::string(address);
    std::string masked(address.substr(0, query + 1));
    bool first = true;
    for (const std::string_view pair : SplitAt(address.substr(query + 1), '&')) {
        if (!first) masked += '&';
        first = false;
        const std::string_view name = pair.substr(0, pair.find('='));
        if (HoldsKey(name)) {
            masked.append(name).append("=***");
        } else {
            masked += pair;
        }
    }
    return masked;
}

}  // namespace brantlow
