#include "acquire/feeds/live/error_rules.h"

#include <fmt/format.h>

#include <array>
#include <nlohmann/json.hpp>

#include "acquire/feeds/live/reply_values.h"
#include "base/text.h"

namespace brantlow {

namespace {

using nlohmann::json;

constexpr int kStatusOk = 200;
// Longer replies hold rows; a sentence is looked for in shorter ones only.
constexpr std::size_t kLongestEnvelope = 4096;

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    return UpperCase(text).find(UpperCase(part)) != std::string::npos;
}

bool Applies(const ErrorRule& rule, int status, std::string_view bytes, const json& document) {
    if (rule.status && *rule.status != status) return false;
    if (rule.pointer.empty()) {
        return rule.contains.empty() ||
               ContainsIgnoringCase(bytes.substr(0, kLongestEnvelope), rule.contains);
    }
    if (document.is_discarded()) return false;
    const json* value = Lead(document, rule.pointer);
    if (value == nullptr) return false;
    const std::string text = TextOf(value);
    if (!rule.equals.empty() && text != rule.equals) return false;
    return rule.contains.empty() || ContainsIgnoringCase(text, rule.contains);
}

// The sentence of a refusal, wherever the services put it.
std::string WordsOf(std::string_view bytes, const json& document) {
    constexpr std::array<const char*, 13> kPlaces = {"/error/message",
                                                     "/error",
                                                     "/message",
                                                     "/detail",
                                                     "/errors/0",
                                                     "/Error Message",
                                                     "/Information",
                                                     "/Note",
                                                     "/chart/error/description",
                                                     "/spark/error/description",
                                                     "/finance/error/description",
                                                     "/status/bCodeMessage/0/errorMessage",
                                                     "/description"};
    if (!document.is_discarded()) {
        for (const char* place : kPlaces) {
            const std::string text = TextOf(Lead(document, place));
            if (!text.empty()) return ServerWords(text);
        }
        return {};
    }
    const std::string_view text = Trim(bytes);
    if (!text.starts_with('<')) return ServerWords(text);
    // Of a page its title is enough.
    const std::string upper = UpperCase(text.substr(0, kLongestEnvelope));
    const std::size_t begin = upper.find("<TITLE>");
    const std::size_t end = upper.find("</TITLE>");
    constexpr std::size_t kTag = 7;
    if (begin == std::string::npos || end == std::string::npos || end < begin) return "a web page";
    return "a web page: " + ServerWords(text.substr(begin + kTag, end - begin - kTag));
}

// Of a page that a rule knows by its text, that text too where the title is another one.
std::string WordsOfPage(const ErrorRule& rule, std::string_view bytes, std::string words) {
    const bool isPage = Trim(bytes).starts_with('<') && rule.pointer.empty() && !rule.contains.empty();
    if (!isPage || ContainsIgnoringCase(words, rule.contains)) return words;
    const std::size_t at = UpperCase(bytes).find(UpperCase(rule.contains));
    return words + ": " + ServerWords(bytes.substr(at, rule.contains.size()));
}

struct StatusRow {
    int first;
    int last;
    SourceResult result;
};

constexpr int kFirstOfPlan = 402;
constexpr int kLastOfPlan = 403;

constexpr int kFirstRedirection = 300;
constexpr int kLastRedirection = 399;

bool IsRedirection(int status) {
    return status >= kFirstRedirection && status <= kLastRedirection;
}

constexpr std::array<StatusRow, 9> kStatuses = {
    {{kFirstRedirection, kLastRedirection, SourceResult::ChangedFormat},
     {401, 401, SourceResult::BadKey},
     {kFirstOfPlan, kLastOfPlan, SourceResult::NotInPlan},
     {404, 404, SourceResult::UnknownSymbol},
     {408, 408, SourceResult::Network},
     {429, 429, SourceResult::RateLimited},
     {400, 499, SourceResult::ChangedFormat},
     {500, 599, SourceResult::Network},
     {0, 999, SourceResult::ChangedFormat}}};

// These services refuse in JSON or in plain words: a page comes from something on the way, which knows
// nothing of plans.
SourceResult ResultOfStatus(int status, bool isPage) {
    if (isPage && status >= kFirstOfPlan && status <= kLastOfPlan) return SourceResult::Network;
    for (const StatusRow& row : kStatuses) {
        if (status >= row.first && status <= row.last) return row.result;
    }
    return SourceResult::ChangedFormat;
}

}  // namespace

SourceOutcome JudgeReply(const SourceDefinition& source, int status, std::string_view bytes) {
    const std::string_view text = Trim(bytes);
    const bool isEnvelope = status != kStatusOk || text.size() <= kLongestEnvelope;
    const json document = isEnvelope ? ParsedReply(text) : json(json::value_t::discarded);
    for (const ErrorRule& rule : source.errors) {
        if (!isEnvelope || !Applies(rule, status, text, document)) continue;
        SourceOutcome outcome = rule.outcome;
        outcome.words = WordsOfPage(rule, text, WordsOf(text, document));
        if (outcome.words.empty() && status != kStatusOk) outcome.words = fmt::format("status {}", status);
        return outcome;
    }
    if (status != kStatusOk) {
        SourceOutcome outcome{.result = ResultOfStatus(status, text.starts_with('<')),
                              .words = WordsOf(text, document)};
        if (IsRedirection(status)) outcome.words = "it leads on to another page";
        outcome.words =
            fmt::format("status {}{}{}", status, outcome.words.empty() ? "" : ": ", outcome.words);
        return outcome;
    }
    if (text.starts_with('<')) {
        return {.result = SourceResult::ChangedFormat,
                .words = WordsOf(text, json(json::value_t::discarded))};
    }
    return {};
}

std::string WithoutKey(std::string_view words, const SourceKey& key) {
    std::string clean(words);
    for (const std::string& part : {key.id, key.secret}) {
        // Shorter texts are words.
        constexpr std::size_t kShortestKey = 4;
        if (part.size() < kShortestKey) continue;
        for (std::size_t at = clean.find(part); at != std::string::npos; at = clean.find(part)) {
            clean.replace(at, part.size(), "***");
        }
    }
    return clean;
}

}  // namespace brantlow
