#include "acquire/feeds/fundamental_pages.h"

#include <cmath>
#include <span>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

// One row of the table, to be filled.
struct Target {
    QuoteTable& table;
    std::size_t row;
};

struct Suffix {
    char letter;
    double factor;
};

constexpr std::array<Suffix, 3> kSuffixes = {{{'B', 1e9}, {'M', 1e6}, {'K', 1e3}}};
constexpr std::string_view kSuffixLetters = "BMK";

std::vector<std::string_view> PageLines(std::string_view text) {
    std::vector<std::string_view> lines;
    LineReader reader(text);
    for (std::string_view line; lines.size() < kMostPageLines && reader.Next(line);) lines.push_back(line);
    return lines;
}

bool StartsWith(std::string_view line, std::string_view label) {
    return EqualIgnoringCase(line.substr(0, label.size()), label);
}

// `value` loses the binary dust of a multiplication, as a number of fifteen digits does.
void WriteNumber(const Target& target, std::size_t column, double value) {
    if (!std::isfinite(value)) return;
    target.table.SetText(target.row, column, ShortestNumber(RoundToGeneralForm(value)));
}

bool BeginsWithNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (text.starts_with('.')) text.remove_prefix(1);
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

void WriteScaled(const Target& target, std::size_t column, std::string_view text) {
    for (const Suffix& suffix : kSuffixes) {
        if (!text.ends_with(suffix.letter)) continue;
        text.remove_suffix(1);
        WriteNumber(target, column, LeadingNumber(text) * suffix.factor);
        return;
    }
}

void WriteValue(const Target& target, std::size_t column, ValueKind kind, std::string_view text) {
    const std::string_view value = Trim(text);
    if (!BeginsWithNumber(value)) return;
    switch (kind) {
        case ValueKind::Scaled:
            return WriteScaled(target, column, value);
        case ValueKind::Number:
            return WriteNumber(target, column, LeadingNumber(value));
        case ValueKind::Plain:
            if (LeadingNumber(value) != 0) WriteNumber(target, column, LeadingNumber(value));
    }
}

// Writes what stands behind the last ":" of each line that begins with a label.
void ParseLabels(std::span<const FundamentalLabel> labels, std::string_view text, const Target& target) {
    for (const std::string_view line : PageLines(text)) {
        const std::size_t colon = line.rfind(':');
        if (colon == std::string_view::npos) continue;
        const std::string_view ValueText = line.substr(colon + 1);
        for (const FundamentalLabel& label : labels) {
            if (StartsWith(line, label.label)) WriteValue(target, label.column, label.kind, ValueText);
        }
    }
}

// Where the value ends whose decimal point stands at `point`; npos where its letter is missing.
std::size_t EndOfEstimate(std::string_view text, std::size_t point, ValueKind kind) {
    constexpr std::size_t kDecimals = 2;
    if (kind == ValueKind::Number) return point + 1 + kDecimals;
    const std::size_t letter = text.find_first_of(kSuffixLetters, point);
    return letter == std::string_view::npos ? letter : letter + 1;
}

// The values run together ("1.231.45"): a value ends by its decimal point.
void ParseEstimates(const EstimateTable& estimates, std::string_view text, const Target& target) {
    for (std::size_t count = 0; count < kEstimates; ++count) {
        const std::size_t point = text.find('.');
        if (point == std::string_view::npos) return;
        const std::size_t end = EndOfEstimate(text, point, estimates.kind);
        if (end == std::string_view::npos) return;
        WriteValue(target, estimates.firstColumn + count, estimates.kind, text.substr(0, end));
        if (end >= text.size()) return;
        text.remove_prefix(end);
    }
}

void ParseEstimateLine(const std::vector<std::string_view>& lines, std::size_t at, const Target& target) {
    if (at < kEstimateHeadLines || !StartsWith(lines[at], kEstimateLabel)) return;
    for (const EstimateTable& estimates : kEstimateTables) {
        if (!StartsWith(lines[at - kEstimateHeadLines], estimates.head)) continue;
        ParseEstimates(estimates, lines[at].substr(kEstimateLabel.size()), target);
    }
}

void ParseGrowthLine(const std::vector<std::string_view>& lines, std::size_t at, const Target& target) {
    const bool headed = at > 0 && UpperCase(lines[at - 1]).find(UpperCase(kGrowthHead)) != std::string::npos;
    if (!headed) return;
    for (const FundamentalLabel& label : kGrowthLabels) {
        if (!StartsWith(lines[at], label.label)) continue;
        const std::string_view text = lines[at].substr(label.label.size()).substr(0, kGrowthLength);
        const std::size_t percent = text.find('%');
        if (percent == std::string_view::npos) continue;
        WriteValue(target, label.column, label.kind, text.substr(0, percent));
    }
}

}  // namespace

void ParseKeyStatistics(std::string_view text, QuoteTable& table, std::size_t row) {
    ParseLabels(kKeyStatisticsLabels, text, {table, row});
}

void ParseAnalystOpinion(std::string_view text, QuoteTable& table, std::size_t row) {
    ParseLabels(kAnalystOpinionLabels, text, {table, row});
}

void ParseAnalystEstimates(std::string_view text, QuoteTable& table, std::size_t row) {
    const std::vector<std::string_view> lines = PageLines(text);
    for (std::size_t at = 0; at < lines.size(); ++at) {
        ParseEstimateLine(lines, at, {table, row});
        ParseGrowthLine(lines, at, {table, row});
    }
}

void ParseFundamentalPage(FundamentalPage page, std::string_view text, QuoteTable& table, std::size_t row) {
    switch (page) {
        case FundamentalPage::KeyStatistics:
            return ParseKeyStatistics(text, table, row);
        case FundamentalPage::AnalystOpinion:
            return ParseAnalystOpinion(text, table, row);
        case FundamentalPage::AnalystEstimates:
            return ParseAnalystEstimates(text, table, row);
    }
}

}  // namespace brantlow
