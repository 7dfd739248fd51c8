#include "store/row_filter.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "store/columns.h"

namespace brantlow {

namespace {

constexpr std::string_view kAnd = " AND ";
constexpr std::string_view kIn = " IN ";
constexpr std::string_view kCondition = "CONDITION ";

char Capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// `wanted` is in capitals.
bool Holds(std::string_view cell, std::string_view wanted) {
    if (cell.size() < wanted.size()) return false;
    return std::search(cell.begin(), cell.end(), wanted.begin(), wanted.end(),
                       [](char a, char b) { return Capital(a) == b; }) != cell.end();
}

struct Scale {
    char letter;
    double factor;
};
constexpr std::array kScales = {Scale{'K', 1e3}, Scale{'M', 1e6}, Scale{'B', 1e9}};

// A number as it is typed: "1,000,000", "1.5M", "2%".
std::optional<double> TypedNumber(std::string_view text) {
    std::string digits(Trim(text));
    std::erase(digits, ',');
    double factor = 1;
    for (const Scale& scale : kScales) {
        if (!digits.empty() && Capital(digits.back()) == scale.letter) {
            digits.pop_back();
            factor = scale.factor;
            break;
        }
    }
    const auto number = CellNumber(digits);
    return number ? std::optional(*number * factor) : std::nullopt;
}

// The column of this header, or of the only one that begins so.
std::optional<std::size_t> ColumnNamed(std::string_view name, const QuoteTable& table) {
    std::optional<std::size_t> begun;
    bool several = false;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        const std::string& header = table.Header(column);
        if (EqualIgnoringCase(header, name)) return column;
        if (name.empty() || header.size() < name.size() ||
            !EqualIgnoringCase(std::string_view(header).substr(0, name.size()), name))
            continue;
        several = begun.has_value();
        begun = column;
    }
    return several ? std::nullopt : begun;
}

// The number in "CONDITION 3" or "3"; nothing in other words, which are a text to look for.
std::optional<std::string> ConditionNumber(std::string_view words) {
    const bool isNamed = UpperCase(words).starts_with(kCondition);
    const std::string_view number = Trim(isNamed ? words.substr(kCondition.size()) : words);
    const bool isNumber = !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
    return isNamed || isNumber ? std::optional<std::string>(number) : std::nullopt;
}

}  // namespace

std::optional<double> CellNumber(std::string_view cell) {
    if (cell.ends_with('%')) cell.remove_suffix(1);
    return WholeNumber(cell);
}

RowFilter RowFilter::Parse(std::string_view text, const QuoteTable& table) {
    RowFilter filter;
    std::string_view rest = Trim(text);
    while (!rest.empty()) {
        const std::size_t end = UpperCase(rest).find(kAnd);
        if (!filter.Add(Trim(rest.substr(0, end)), table)) {
            filter.terms_.clear();
            break;
        }
        rest = end == std::string_view::npos ? std::string_view() : Trim(rest.substr(end + kAnd.size()));
    }
    return filter;
}

bool RowFilter::Add(std::string_view words, const QuoteTable& table) {
    if (words.empty()) return true;
    bool isVerdict = false;
    if (!AddVerdict(words, table, isVerdict)) return false;
    if (isVerdict) return true;
    const std::size_t at = words.find_first_of("<>=!");
    if (at != std::string_view::npos && at > 0) return AddComparison(words, at, table);
    terms_.push_back({.column = {}, .number = {}, .texts = {UpperCase(words)}, .contains = true});
    return true;
}

// "hit in condition 3": words of a verdict in front of the column of a selector's table.
bool RowFilter::AddVerdict(std::string_view words, const QuoteTable& table, bool& isVerdict) {
    struct Verdict {
        std::string_view word;
        std::vector<std::string> texts;
    };
    static const std::array<Verdict, 4> kVerdicts = {
        {{"HIT", {"BUY", "SELL"}}, {"BUY", {"BUY"}}, {"SELL", {"SELL"}}, {"HOLD", {"HOLD"}}}};
    const std::string capitals = UpperCase(words);
    const std::size_t at = capitals.find(kIn);
    if (at == std::string::npos) return true;
    const std::optional<std::string> number = ConditionNumber(Trim(words.substr(at + kIn.size())));
    const auto verdict = std::find_if(kVerdicts.begin(), kVerdicts.end(), [&](const Verdict& row) {
        return Trim(std::string_view(capitals).substr(0, at)) == row.word;
    });
    isVerdict = number && verdict != kVerdicts.end();
    if (!isVerdict) return true;
    const auto column = table.ColumnOf("Condition " + *number);
    if (!column) {
        complaint_ = table.ColumnOf(kEvaluationColumns[1])
                         ? "There is no condition " + *number + "."
                         : "Only a Stock Selector file tells the hits of a condition.";
        return false;
    }
    terms_.push_back({.column = *column, .number = {}, .texts = verdict->texts});
    return true;
}

bool RowFilter::AddComparison(std::string_view words, std::size_t at, const QuoteTable& table) {
    struct Sign {
        std::string_view text;
        Comparison comparison;
    };
    static constexpr std::array<Sign, 7> kSigns = {{{">=", Comparison::AtLeast},
                                                    {"<=", Comparison::AtMost},
                                                    {"!=", Comparison::Unequal},
                                                    {"<>", Comparison::Unequal},
                                                    {">", Comparison::Greater},
                                                    {"<", Comparison::Less},
                                                    {"=", Comparison::Equal}}};
    const std::string_view name = Trim(words.substr(0, at));
    const std::string_view behind = words.substr(at);
    const auto sign = std::find_if(kSigns.begin(), kSigns.end(),
                                   [&](const Sign& row) { return behind.starts_with(row.text); });
    const auto column = ColumnNamed(name, table);
    if (!column || sign == kSigns.end()) {
        complaint_ = "There is no column " + std::string(name) + ".";
        return false;
    }
    const std::string_view value = Trim(behind.substr(sign->text.size()));
    Term term{.column = column, .comparison = sign->comparison, .number = TypedNumber(value), .texts = {}};
    const bool comparesTexts =
        sign->comparison == Comparison::Equal || sign->comparison == Comparison::Unequal;
    if (!term.number && !comparesTexts) {
        complaint_ = value.empty() ? "A number is missing behind " + std::string(sign->text) + "."
                                   : std::string(value) + " is no number.";
        return false;
    }
    term.texts = {UpperCase(value)};
    terms_.push_back(std::move(term));
    return true;
}

bool RowFilter::CellPasses(const Term& term, const std::string& cell) {
    if (term.contains) return Holds(cell, term.texts.front());
    const auto number = term.number ? CellNumber(cell) : std::nullopt;
    const auto isText = [&](const std::string& text) { return EqualIgnoringCase(cell, text); };
    const bool equal =
        number ? *number == *term.number : std::any_of(term.texts.begin(), term.texts.end(), isText);
    switch (term.comparison) {
        case Comparison::Equal:
            return equal;
        case Comparison::Unequal:
            return !equal;
        case Comparison::Greater:
            return number && *number > *term.number;
        case Comparison::Less:
            return number && *number < *term.number;
        case Comparison::AtLeast:
            return number && *number >= *term.number;
        case Comparison::AtMost:
            return number && *number <= *term.number;
    }
    return true;
}

bool RowFilter::Passes(const QuoteTable& table, std::size_t row) const {
    return std::all_of(terms_.begin(), terms_.end(), [&](const Term& term) {
        if (term.column) return CellPasses(term, table.Text(row, *term.column));
        for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
            if (CellPasses(term, table.Text(row, column))) return true;
        }
        return false;
    });
}

std::vector<std::size_t> RowFilter::Rows(const QuoteTable& table) const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (Passes(table, row)) rows.push_back(row);
    }
    return rows;
}

}  // namespace brantlow
