// How a live source spells tickers. The table's spelling is the middle: a class is BRK.B, a preferred share
// BAC pK, a unit or warrant IPOD.U, IPOD.WS, an index ^GSPC, a foreign exchange a suffix of two letters or .L
// or .F. Every definition says what it makes of each of these; what it cannot spell it does not know.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brantlow {

enum class SymbolKind : std::uint8_t { Plain, Class, Preferred, Unit, Warrant, Index, Foreign };

struct SymbolParts {
    SymbolKind kind = SymbolKind::Plain;
    std::string root;
    std::string suffix;  // the class, the series of a preferred share, the exchange
};

// The parts of a table's ticker.
SymbolParts PartsOfTicker(std::string_view ticker);
// The table's spelling of the parts.
std::string TickerOfParts(const SymbolParts& parts);

struct SymbolNotation {
    // What stands between root and suffix; nothing for a kind that the source cannot spell.
    std::optional<std::string> classMark;
    std::optional<std::string> preferredMark;
    std::optional<std::string> unitEnd;     // behind the root, all of it
    std::optional<std::string> warrantEnd;  // behind the root, all of it
    std::optional<std::string> foreignMark;
    std::string classEnd;  // closes the class, as in BRK%sl%B's second mark; mostly empty
    bool asIsIndices = false;
    std::string ending;  // behind every symbol of the home exchange
    bool lowerCase = false;
    // Symbols that follow no rule, by the table's spelling.
    std::vector<std::pair<std::string, std::string>> names;
};

// The source's spelling of a table's ticker; nothing where it has none, or for characters that stand in no
// symbol.
std::optional<std::string> SpellSymbol(const SymbolNotation& notation, std::string_view ticker);

// The table's spelling of a source's symbol; nothing for one that cannot be a ticker.
std::optional<std::string> ReadSymbol(const SymbolNotation& notation, std::string_view symbol);

}  // namespace brantlow
