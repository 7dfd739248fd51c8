#include "acquire/feeds/live/symbol_table.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

SourceSymbol ListedSymbol(std::string ticker, std::string name, std::string exchange, std::string kind) {
    SourceSymbol symbol;
    symbol.ticker = std::move(ticker);
    symbol.name = std::move(name);
    symbol.exchange = std::move(exchange);
    symbol.kind = std::move(kind);
    return symbol;
}

std::string ChosenTickers(const SymbolChoice& choice) {
    std::string tickers;
    const std::vector<SourceSymbol> listed = {ListedSymbol("MSFT", "Microsoft", "NASDAQ", "stock"),
                                              ListedSymbol("KO", "Coca-Cola", "NYSE", "stock"),
                                              ListedSymbol("KO", "Coca-Cola again", "NYSE", "stock"),
                                              ListedSymbol("SPY", "A fund", "NYSE Arca", "etf"),
                                              ListedSymbol("A/B", "No file's name", "NYSE", "stock")};
    for (const SourceSymbol& symbol : ChooseSymbols(listed, choice).symbols) {
        tickers += (tickers.empty() ? "" : " ") + symbol.ticker + ":" + symbol.name;
    }
    return tickers;
}

}  // namespace

TEST(SymbolTable, SymbolsStandOnceByTickerAndByWhatIsAskedFor) {
    EXPECT_EQ(ChosenTickers({}), "KO:Coca-Cola MSFT:Microsoft SPY:A fund");
    EXPECT_EQ(ChosenTickers({{"nyse", "NASDAQ"}, "stock", ""}), "KO:Coca-Cola MSFT:Microsoft");
    EXPECT_EQ(ChosenTickers({{}, "etf", ""}), "SPY:A fund");
    EXPECT_EQ(ChosenTickers({{}, "all", "micro"}), "MSFT:Microsoft");
    EXPECT_EQ(ChosenTickers({{}, "", "ko"}), "KO:Coca-Cola");
    EXPECT_EQ(ChosenTickers({{"IEX"}, "", ""}), "");
}

TEST(SymbolTable, NoMoreThanATableHoldsAreTakenAndTheOthersCounted) {
    std::vector<SourceSymbol> listed;
    for (int i = 100000; i < 118001; ++i) {
        listed.push_back(ListedSymbol("T" + std::to_string(i), "", "NYSE", "stock"));
    }
    const SymbolList chosen = ChooseSymbols(listed, {});
    EXPECT_EQ(chosen.left, 2u);
    ASSERT_EQ(chosen.symbols.size(), 17999u);
    EXPECT_EQ(TableOfSymbols(chosen.symbols).TickerCount(), 17999u);
}

}  // namespace brantlow
