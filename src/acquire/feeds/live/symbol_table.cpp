#include "acquire/feeds/live/symbol_table.h"

#include <algorithm>

#include "base/text.h"
#include "store/columns.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// A table's rows less its header.
constexpr std::size_t kMostSymbols = kMostRows - 1;

bool IsChosen(const SourceSymbol& symbol, const SymbolChoice& choice) {
    const auto isIts = [&](const std::string& name) { return EqualIgnoringCase(name, symbol.exchange); };
    const bool isListed =
        choice.exchanges.empty() || std::any_of(choice.exchanges.begin(), choice.exchanges.end(), isIts);
    const bool isKind = choice.kind.empty() || choice.kind == "all" || choice.kind == symbol.kind;
    const std::string text = UpperCase(choice.text);
    const bool matches = text.empty() || UpperCase(symbol.ticker).find(text) != std::string::npos ||
                         UpperCase(symbol.name).find(text) != std::string::npos;
    return isListed && isKind && matches && HasDatabaseFiles(symbol.ticker);
}

}  // namespace

SymbolList ChooseSymbols(std::vector<SourceSymbol> symbols, const SymbolChoice& choice) {
    SymbolList list;
    std::erase_if(symbols, [&](const SourceSymbol& symbol) { return !IsChosen(symbol, choice); });
    std::stable_sort(symbols.begin(), symbols.end(),
                     [](const SourceSymbol& a, const SourceSymbol& b) { return a.ticker < b.ticker; });
    const auto again = [](const SourceSymbol& a, const SourceSymbol& b) { return a.ticker == b.ticker; };
    symbols.erase(std::unique(symbols.begin(), symbols.end(), again), symbols.end());
    if (symbols.size() > kMostSymbols) {
        list.left = symbols.size() - kMostSymbols;
        symbols.resize(kMostSymbols);
    }
    list.symbols = std::move(symbols);
    return list;
}

SymbolList AskSymbols(SourceWorld& world, const SourceDefinition& source, const SymbolChoice& choice) {
    SourceClient client(world, source);
    SourceReply reply = client.Ask({Capability::Symbols, {}, {}, {}});
    if (!reply.outcome.Done()) return {reply.outcome, {}, 0};
    return ChooseSymbols(std::move(reply.symbols), choice);
}

QuoteTable TableOfSymbols(const std::vector<SourceSymbol>& symbols) {
    QuoteTable table;
    table.AppendLine(QuoteHeader());
    std::size_t name = 0;
    std::size_t exchange = 0;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        if (table.Header(column) == "Name") name = column;
        if (table.Header(column) == "Exchange") exchange = column;
    }
    for (const SourceSymbol& symbol : symbols) {
        table.AppendLine(symbol.ticker);
        table.SetText(table.TickerCount(), name, symbol.name);
        table.SetText(table.TickerCount(), exchange, symbol.exchange);
    }
    return table;
}

}  // namespace brantlow
