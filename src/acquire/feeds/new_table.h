// New end-of-day tables out of lists of tickers: typed or pasted by a person, or as a live source lists the
// symbols of a market. `symbols` of the batch tool and the window of new lists make tables here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/symbol_table.h"
#include "shell/session.h"

namespace brantlow {

// The file name of a table that a person calls `typed`: with the ending of end-of-day files.
std::string TableNameOf(std::string_view typed);

// Why no new table can have the file name `name`: it is none of the Data folder, or it is there already. A
// sentence; empty where it can.
std::string NewTableRefusal(const Session& session, std::string_view name);

// The first of "Market.ddq", "Market 2.ddq" ... that a new table can have.
std::string FreeTableName(const Session& session, std::string_view stem);

struct TypedTickers {
    std::vector<std::string> tickers;  // in capitals, each once, in their order
    std::string refusal;               // the first name that no ticker can have; empty for none
};
// Tickers between blanks, commas, semicolons and line ends. The "pK" of a preferred share belongs to the word
// before it.
TypedTickers ReadTypedTickers(std::string_view text);

struct NewTable {
    std::string refusal;  // a sentence where none was written
    std::size_t tickers = 0;
    std::size_t left = 0;  // symbols beyond what a table holds
};
NewTable CreateTable(const Session& session, const std::vector<SourceSymbol>& symbols, std::string_view name);

// Asks the source, which lists symbols, and writes what was chosen. A list that came only in part, or none
// that fits, writes nothing.
NewTable CreateMarketTable(SourceWorld& world, const SourceDefinition& source, const SymbolChoice& choice,
                           std::string_view name);

}  // namespace brantlow
