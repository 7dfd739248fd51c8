// Classes, preferred shares, units, warrants, indices and foreign exchanges at every source, there and back.
#include "acquire/feeds/live/symbol_notation.h"

#include "acquire/feeds/live/source_fixture.h"

namespace brantlow {

namespace {

constexpr const char* kNone = nullptr;

struct SpellingRow {
    const char* source;
    const char* ticker;
    const char* symbol;  // null where the source cannot spell it
};

const std::vector<SpellingRow> kSpellings = {
    {"massive", "BRK.B", "BRK.B"},      {"massive", "BAC pK", "BACpK"},   {"massive", "IPOD.U", "IPOD.U"},
    {"massive", "IPOD.WS", "IPOD.WS"},  {"massive", "^GSPC", "I:SPX"},    {"massive", "BARC.L", kNone},
    {"alpaca", "BRK.B", "BRK.B"},       {"alpaca", "BAC pK", "BAC.PRK"},  {"alpaca", "^GSPC", kNone},
    {"alpaca", "IPOD.WS", kNone},       {"yahoo", "BRK.B", "BRK-B"},      {"yahoo", "BAC pK", "BAC-PK"},
    {"yahoo", "IPOD.U", "IPOD-UN"},     {"yahoo", "IPOD.WS", "IPOD-WT"},  {"yahoo", "^GSPC", "^GSPC"},
    {"yahoo", "BARC.L", "BARC.L"},      {"yahoo", "VOW3.DE", "VOW3.DE"},  {"yahoo", "M&M.NS", "M&M.NS"},
    {"nasdaq", "BRK.B", "BRK/B"},       {"nasdaq", "BAC pK", "BAC^K"},    {"nasdaq", "^GSPC", kNone},
    {"tiingo", "BRK.B", "BRK-B"},       {"tiingo", "BAC pK", "BAC-P-K"},  {"tiingo", "^GSPC", kNone},
    {"eodhd", "BRK.B", "BRK-B.US"},     {"eodhd", "KO", "KO.US"},         {"eodhd", "^GSPC", "GSPC.INDX"},
    {"eodhd", "BAC pK", "BAC-PK.US"},   {"twelvedata", "BRK.B", "BRK.B"}, {"twelvedata", "^GSPC", "SPX"},
    {"alphavantage", "BRK.B", "BRK-B"}, {"alphavantage", "^GSPC", kNone}, {"fmp", "BRK.B", "BRK-B"},
    {"fmp", "^GSPC", "^GSPC"},          {"sec", "BRK.B", "BRK-B"},        {"sec", "^GSPC", kNone},
};

}  // namespace

TEST(SymbolNotation, EverySourceSpellsEachKindAndReadsItBack) {
    const SourceCatalogue catalogue = LoadSources("/nonexistent");
    for (const SpellingRow& row : kSpellings) {
        SCOPED_TRACE(std::string(row.source) + " " + row.ticker);
        const SymbolNotation& notation = catalogue.Find(row.source)->notation;
        const auto symbol = SpellSymbol(notation, row.ticker);
        if (row.symbol == kNone) {
            EXPECT_EQ(symbol, std::nullopt);
            continue;
        }
        EXPECT_EQ(symbol, row.symbol);
        EXPECT_EQ(ReadSymbol(notation, row.symbol), row.ticker);
    }
}

TEST(SymbolNotation, EverySourceIsTriedByAnIndexAndAClass) {
    for (const SourceDefinition& source : LoadSources("/nonexistent").sources) {
        for (const char* ticker : {"BRK.B", "^GSPC"}) {
            const bool isTried =
                std::any_of(kSpellings.begin(), kSpellings.end(), [&](const SpellingRow& row) {
                    return row.source == source.name && std::string_view(row.ticker) == ticker;
                });
            EXPECT_TRUE(isTried) << source.name << " " << ticker;
        }
    }
}

TEST(SymbolNotation, ATableInCapitalsHasPreferredSharesToo) {
    const SourceCatalogue catalogue = LoadSources("/nonexistent");
    EXPECT_EQ(SpellSymbol(catalogue.Find("massive")->notation, "BAC PK"), "BACpK");
}

TEST(SymbolNotation, ASuffixOfTwoLettersOrLAndFIsAnExchange) {
    EXPECT_EQ(PartsOfTicker("BRK.B").kind, SymbolKind::Class);
    EXPECT_EQ(PartsOfTicker("BARC.L").kind, SymbolKind::Foreign);
    EXPECT_EQ(PartsOfTicker("VOW3.F").kind, SymbolKind::Foreign);
    EXPECT_EQ(PartsOfTicker("7203.T").kind, SymbolKind::Class);
    EXPECT_EQ(PartsOfTicker("SAP.DE").kind, SymbolKind::Foreign);
    EXPECT_EQ(PartsOfTicker("KO").kind, SymbolKind::Plain);
    EXPECT_EQ(PartsOfTicker(".X").kind, SymbolKind::Plain);
}

TEST(SymbolNotation, WhatStandsInNoSymbolIsNotSpelled) {
    const SourceCatalogue catalogue = LoadSources("/nonexistent");
    const SymbolNotation& notation = catalogue.Find("yahoo")->notation;
    for (const std::string ticker : {"", "A B C", "A/B", "A?B", "A#B", "A%42", "../x", "A\nB", "^", "^A B"}) {
        EXPECT_EQ(SpellSymbol(notation, ticker), std::nullopt) << ticker;
    }
}

}  // namespace brantlow
