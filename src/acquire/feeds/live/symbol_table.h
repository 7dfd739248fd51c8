// A new table out of the symbols that a live source lists: chosen by exchange, kind and text, sorted, with
// names and exchanges.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_client.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::array<std::string_view, 6> kExchangeNames = {"NASDAQ",    "NYSE", "NYSE American",
                                                                   "NYSE Arca", "Cboe", "IEX"};

struct SymbolChoice {
    // Names of kExchangeNames in any case; empty for all.
    std::vector<std::string> exchanges;
    std::string kind;  // "stock", "etf"; anything else for all
    std::string text;  // in ticker or name, in any case; empty for all
};

struct SymbolList {
    SourceOutcome outcome;
    std::vector<SourceSymbol> symbols;  // by ticker, each once, as many as a table holds
    std::size_t left = 0;               // beyond that
};

// Asks the source, which gives symbols. Whatever comes only in part gives none.
SymbolList AskSymbols(SourceWorld& world, const SourceDefinition& source, const SymbolChoice& choice);
// The same choice of symbols that are there already.
SymbolList ChooseSymbols(std::vector<SourceSymbol> symbols, const SymbolChoice& choice);

// A quote table with a row for each.
QuoteTable TableOfSymbols(const std::vector<SourceSymbol>& symbols);

}  // namespace brantlow
