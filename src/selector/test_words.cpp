#include "selector/test_words.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "indicators/history_row.h"

namespace brantlow {

namespace {

// A name of the source as a person reads it; a length behind it stays, after a blank.
struct CaptionRow {
    std::string_view name;
    std::string_view caption;
};
constexpr CaptionRow kCaptions[] = {
    {"ClosePrice", "Close"},
    {"LowPrice", "Low"},
    {"HighPrice", "High"},
    {"OpenPrice", "Open"},
    {"PERatio", "P/E"},
    {"EPSttm", "EPS ttm"},
    {"EPSest", "EPS est"},
    {"PEGRatio", "PEG"},
    {"DividendPerShare", "Dividend"},
    {"PreviousClose", "Previous close"},
    {"Low52Week", "52 week low"},
    {"High52Week", "52 week high"},
    {"PriceToSales", "P/S"},
    {"MarketCap", "Market cap"},
    {"LRPrice", "LR Price"},
    {"LRVolume", "LR Volume"},
    {"MLRSlope", "MLR slope"},
    {"MLRIntercept", "MLR intercept"},
    {"LooseUCL", "Loose UCL"},
    {"LooseLCL", "Loose LCL"},
    {"TightUCL", "Tight UCL"},
    {"TightLCL", "Tight LCL"},
    {"MLRDer", "MLR Der"},
    {"McClellan", "McClellan Oscillator"},
    {"PercentChange", "% Change"},
    {"SalesPerShare", "SPS"},
    {"EarningsPerSales", "E/S"},
    {"LRSlope", "LR slope"},
    {"LRTightUCL", "LR Tight UCL"},
    {"LRLooseUCL", "LR Loose UCL"},
    {"LRTightLCL", "LR Tight LCL"},
    {"LRLooseLCL", "LR Loose LCL"},
    {"AverageVolume", "Average volume"},
    {"VolumeTightUCL", "Volume Tight UCL"},
    {"VolumeLooseUCL", "Volume Loose UCL"},
};

std::string Caption(std::string_view name) {
    for (const CaptionRow& row : kCaptions)
        if (row.name == name) return std::string(row.caption);
    const std::size_t letters = name.find_last_not_of("0123456789") + 1;
    std::string caption(name.substr(0, letters));
    for (const CaptionRow& row : kCaptions)
        if (row.name == caption) caption = row.caption;
    return letters == name.size() ? caption : fmt::format("{} {}", caption, name.substr(letters));
}

template <class Table, class Key, class Member>
std::string CaptionIn(const Table& table, Key key, Member member) {
    for (const auto& row : table)
        if (row.*member == key) return Caption(row.name);
    return {};
}

struct RelationWords {
    std::string_view sign;
    std::string_view opposite;
    std::string_view words;
};
constexpr RelationWords WordsOf(Relation relation) {
    constexpr std::array<RelationWords, 4> kWords = {
        {{">", "<=", "above"}, {"<", ">=", "below"}, {">=", "<", "at or above"}, {"<=", ">", "at or below"}}};
    return kWords[static_cast<std::size_t>(relation)];
}

// A quantity on the bar before: each of its series is, a constant is not.
std::string Before(const Quantity& quantity) {
    const bool constant = quantity.stored == nullptr && quantity.computed == nullptr;
    const std::string caption = CaptionOf(quantity);
    if (constant) return caption;
    const bool sum =
        quantity.added != nullptr || quantity.subtracted != nullptr || quantity.scalar != nullptr;
    return fmt::format(fmt::runtime(sum ? "({})[-1]" : "{}[-1]"), caption);
}

}  // namespace

std::string CaptionOf(StoredArray array) {
    return CaptionIn(kNumberFields, array, &NumberField::series);
}
std::string CaptionOf(IndicatorArray array) {
    return CaptionIn(kIndicatorArrays, array, &NamedIndicator::array);
}
std::string CaptionOf(WindowScalar scalar) {
    return CaptionIn(kIndicatorScalarNames, scalar, &IndicatorScalarName::value);
}

std::string CaptionOf(const Quantity& quantity) {
    std::string caption;
    const auto add = [&caption](std::string_view sign, const std::string& part) {
        caption += caption.empty() ? part : fmt::format(" {} {}", sign, part);
    };
    if (quantity.stored != nullptr) add("+", CaptionOf(quantity.stored));
    if (quantity.computed != nullptr) add("+", CaptionOf(quantity.computed));
    if (quantity.added != nullptr) add("+", CaptionOf(quantity.added));
    if (quantity.subtracted != nullptr) add("-", CaptionOf(quantity.subtracted));
    if (quantity.scalar != nullptr) add("+", CaptionOf(quantity.scalar));
    if (caption.empty()) caption = fmt::format("{}", quantity.constant);
    return caption;
}

std::string MeaningOf(const NamedTest& test) {
    const std::string left = CaptionOf(test.left);
    const std::string right = CaptionOf(test.right);
    const std::string_view words = WordsOf(test.relation).words;
    switch (test.kind) {
        case TestKind::Today:
            return fmt::format("{} is {} {} on the newest bar.", left, words, right);
        case TestKind::Crossing:
            return fmt::format("{} is {} {} on the newest bar and was not on the bar before.", left, words,
                               right);
        case TestKind::WithinTenBars:
            return fmt::format("{} is {} {} on at least one of the ten newest bars.", left, words, right);
        case TestKind::FromYesterday:
            return fmt::format("{} is {} its value on the bar before.", left, words);
        case TestKind::Pattern:
            return fmt::format("The newest bars show the candlestick pattern {}.", test.pattern->name);
        case TestKind::NeverComputes:
            break;
    }
    return fmt::format("Asks whether {} is {} {}, bar by bar, which cannot be computed.", left, words, right);
}

std::string FormulaOf(const NamedTest& test) {
    const RelationWords words = WordsOf(test.relation);
    const std::string left = CaptionOf(test.left);
    std::string formula = fmt::format("{} {} {}", left, words.sign, CaptionOf(test.right));
    if (test.kind == TestKind::Crossing) {
        formula += fmt::format(" and {} {} {}", Before(test.left), words.opposite, Before(test.right));
    } else if (test.kind == TestKind::WithinTenBars) {
        formula += " on one of the bars 0 to -9";
    } else if (test.kind == TestKind::FromYesterday) {
        formula = fmt::format("{} {} {}", left, words.sign, Before(test.left));
    } else if (test.kind == TestKind::Pattern) {
        formula = "Open, high, low and close of up to five bars";
    }
    if (test.guard != kNoGuard) formula += fmt::format("; more than {} bars", test.guard);
    return formula;
}

std::string_view RemarkText(TestRemark remark) {
    constexpr std::array<std::string_view, 6> kTexts = {
        "",
        "Always holds: it cannot be computed, and what cannot be computed passes.",
        "Never holds: it compares a line with itself.",
        "Looks at the sign only: the extreme in its name counts as 0.",
        "Never runs: it waits for more than 600 bars, and a window has 279.",
        "Hardly ever changes: the stochastic lies between 0 and 1.",
    };
    return kTexts[static_cast<std::size_t>(remark)];
}

std::string NumberText(double value) {
    constexpr double kSmall = 0.1;
    const bool small = value != 0 && std::fabs(value) < kSmall;
    return small ? fmt::format("{:.4g}", value) : fmt::format("{:.2f}", value);
}

}  // namespace brantlow
