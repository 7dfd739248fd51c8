#include "acquire/feeds/live/symbol_notation.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kLongestSymbol = 40;

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

bool AreCapitals(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsCapital);
}

// What may stand in the root of a symbol anywhere: M&M, 7203, 0700, BF, EURUSD=X.
bool IsSymbolCharacter(char c) {
    constexpr std::string_view kMarks = "&=-_+";
    return IsCapital(c) || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
           kMarks.find(c) != std::string_view::npos;
}

bool IsRoot(std::string_view text) {
    return !text.empty() && text.size() <= kLongestSymbol &&
           std::all_of(text.begin(), text.end(), IsSymbolCharacter);
}

// London and Frankfurt have one letter, which a class could be as well.
bool IsExchange(std::string_view suffix) {
    return suffix.size() >= 2 || suffix == "L" || suffix == "F";
}

// "p" and the letter of the series; a table in capitals has "P".
bool IsPreferredEnd(std::string_view text) {
    return !text.empty() && text.size() <= 2 && (text[0] == 'p' || text[0] == 'P') &&
           AreCapitals(text.substr(1));
}

SymbolKind KindOfSuffix(std::string_view suffix) {
    if (suffix == "U") return SymbolKind::Unit;
    if (suffix == "WS") return SymbolKind::Warrant;
    return IsExchange(suffix) ? SymbolKind::Foreign : SymbolKind::Class;
}

struct KindMark {
    SymbolKind kind;
    std::optional<std::string> SymbolNotation::*mark;
    // The mark is all that stands behind the root.
    bool isEnd;
};

constexpr std::array<KindMark, 5> kMarks = {{
    {SymbolKind::Warrant, &SymbolNotation::warrantEnd, true},
    {SymbolKind::Unit, &SymbolNotation::unitEnd, true},
    {SymbolKind::Preferred, &SymbolNotation::preferredMark, false},
    {SymbolKind::Class, &SymbolNotation::classMark, false},
    {SymbolKind::Foreign, &SymbolNotation::foreignMark, false},
}};

std::optional<std::string> Spelling(const SymbolNotation& notation, const SymbolParts& parts) {
    if (parts.kind == SymbolKind::Plain) return parts.root + notation.ending;
    for (const KindMark& row : kMarks) {
        if (row.kind != parts.kind) continue;
        const auto& mark = notation.*row.mark;
        if (!mark) return std::nullopt;
        if (row.isEnd) return parts.root + *mark + notation.ending;
        const bool isClass = parts.kind == SymbolKind::Class;
        const bool isHome = parts.kind != SymbolKind::Foreign;
        return parts.root + *mark + parts.suffix + (isClass ? notation.classEnd : "") +
               (isHome ? notation.ending : "");
    }
    return std::nullopt;
}

// The parts of `symbol` when it is one of this kind.
std::optional<SymbolParts> PartsByMark(const SymbolNotation& notation, const KindMark& row,
                                       std::string_view symbol) {
    const auto& mark = notation.*row.mark;
    if (!mark || mark->empty()) return std::nullopt;
    const std::size_t at = symbol.rfind(*mark);
    if (at == std::string_view::npos || at == 0) return std::nullopt;
    std::string_view suffix = symbol.substr(at + mark->size());
    if (row.isEnd && !suffix.empty()) return std::nullopt;
    if (row.kind == SymbolKind::Class && !notation.classEnd.empty()) {
        if (!suffix.ends_with(notation.classEnd)) return std::nullopt;
        suffix.remove_suffix(notation.classEnd.size());
    }
    SymbolParts parts{row.kind, std::string(symbol.substr(0, at)), std::string(suffix)};
    const bool fits =
        row.isEnd || (row.kind == SymbolKind::Preferred
                          ? suffix.size() <= 1 && AreCapitals(suffix)
                          : KindOfSuffix(suffix) == row.kind && AreCapitals(suffix) && !suffix.empty());
    if (!fits || !IsRoot(parts.root)) return std::nullopt;
    if (row.isEnd) parts.suffix = row.kind == SymbolKind::Unit ? "U" : "WS";
    return parts;
}

}  // namespace

SymbolParts PartsOfTicker(std::string_view ticker) {
    if (ticker.starts_with('^')) return {SymbolKind::Index, std::string(ticker), {}};
    const std::size_t blank = ticker.rfind(' ');
    if (blank != std::string_view::npos && blank > 0 && IsPreferredEnd(ticker.substr(blank + 1))) {
        const std::string_view series = ticker.substr(blank + 2);
        return {SymbolKind::Preferred, std::string(ticker.substr(0, blank)), std::string(series)};
    }
    const std::size_t point = ticker.rfind('.');
    if (point == std::string_view::npos || point == 0 || point + 1 == ticker.size()) {
        return {SymbolKind::Plain, std::string(ticker), {}};
    }
    const std::string_view suffix = ticker.substr(point + 1);
    return {KindOfSuffix(suffix), std::string(ticker.substr(0, point)), std::string(suffix)};
}

std::string TickerOfParts(const SymbolParts& parts) {
    switch (parts.kind) {
        case SymbolKind::Plain:
        case SymbolKind::Index:
            return parts.root;
        case SymbolKind::Preferred:
            return parts.root + " p" + parts.suffix;
        default:
            return parts.root + '.' + parts.suffix;
    }
}

std::optional<std::string> SpellSymbol(const SymbolNotation& notation, std::string_view ticker) {
    for (const auto& [name, symbol] : notation.names) {
        if (name == ticker) return symbol;
    }
    const SymbolParts parts = PartsOfTicker(ticker);
    std::optional<std::string> symbol;
    if (parts.kind == SymbolKind::Index) {
        if (!notation.asIsIndices || !IsRoot(std::string_view(parts.root).substr(1))) return std::nullopt;
        symbol = parts.root;
    } else if (IsRoot(parts.root)) {
        symbol = Spelling(notation, parts);
    }
    if (symbol && notation.lowerCase) {
        std::transform(symbol->begin(), symbol->end(), symbol->begin(),
                       [](char c) { return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c; });
    }
    return symbol;
}

std::optional<std::string> ReadSymbol(const SymbolNotation& notation, std::string_view symbol) {
    symbol = Trim(symbol);
    for (const auto& [name, spelled] : notation.names) {
        if (spelled == symbol) return name;
    }
    std::string upper;
    if (notation.lowerCase) symbol = upper = UpperCase(symbol);
    if (notation.asIsIndices && symbol.starts_with('^')) return std::string(symbol);
    const std::string ending = notation.lowerCase ? UpperCase(notation.ending) : notation.ending;
    if (!ending.empty() && symbol.ends_with(ending)) symbol.remove_suffix(ending.size());
    for (const KindMark& row : kMarks) {
        if (const auto parts = PartsByMark(notation, row, symbol)) return TickerOfParts(*parts);
    }
    if (!IsRoot(symbol)) return std::nullopt;
    return std::string(symbol);
}

}  // namespace brantlow
