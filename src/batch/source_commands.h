// The rows of the command table that are about live sources themselves.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"
#include "batch/source_calls.h"

namespace brantlow {

ExitStatus RunSources(BatchCall& call);
inline constexpr Command kSourcesCommand = {
    .name = "sources",
    .usage = "[check NAME [TICKER]]",
    .operand = "check",
    .mostOperands = 3,
    .summary = "Lists the live sources, or asks one for each thing that it gives",
    .help =
        "Without operands one JSON object a line, one line a source: name, title, whether it needs and has "
        "a\n"
        "key, what it gives, its limits, and what it is chosen for in VTRSRCset.ini. Definitions of your "
        "own\n"
        "lie in Data/Sources. With check the source is asked once for each thing, by TICKER or AAPL, and a "
        "line\n"
        "tells what came: rows with their first and last date, or the failure in the server's own words.\n",
    .settings = kDownloadSettings,
    .run = RunSources,
};

std::optional<std::string> RefuseSymbolsName(std::string_view text);
std::optional<std::string> RefuseSymbolKind(std::string_view text);
std::optional<std::string> RefuseExchanges(std::string_view text);
inline constexpr std::string_view kExchangeOption = "--exchange";
inline constexpr std::string_view kTypeOption = "--type";
inline constexpr std::string_view kMatchOption = "--match";
inline constexpr std::array<CommandOption, 5> kSymbolsOptions = {{
    kSourceOption,
    {kExchangeOption, "X,Y", "NASDAQ, NYSE, NYSE American, NYSE Arca, Cboe, IEX; all without it",
     RefuseExchanges},
    {kTypeOption, "KIND", "stock, etf or all (as without it)", RefuseSymbolKind},
    {kMatchOption, "TEXT", "only symbols with this text in their ticker or name", nullptr},
    {kOutOption, "FILE.ddq", "the new table in Data", RefuseSymbolsName},
}};
ExitStatus RunSymbols(BatchCall& call);
inline constexpr Command kSymbolsCommand = {
    .name = "symbols",
    .usage = "",
    .operand = "",
    .options = kSymbolsOptions,
    .summary = "Makes a table of the symbols that a live source lists",
    .help =
        "The table has the tickers with their names and exchanges, sorted, at most 17,999 rows. --source "
        "and\n"
        "--out have to be given, unless a source of symbols is chosen. Refused when FILE.ddq exists.\n",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunSymbols,
};

}  // namespace brantlow
