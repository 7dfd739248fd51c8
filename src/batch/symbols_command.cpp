#include "acquire/feeds/new_table.h"
#include "base/text.h"
#include "batch/source_commands.h"
#include "batch/table_calls.h"

namespace brantlow {

namespace {

bool IsExchange(std::string_view name) {
    for (const std::string_view exchange : kExchangeNames) {
        if (EqualIgnoringCase(exchange, name)) return true;
    }
    return false;
}

}  // namespace

std::optional<std::string> RefuseSymbolsName(std::string_view text) {
    return RefuseTableName(text, ".ddq");
}

std::optional<std::string> RefuseSymbolKind(std::string_view text) {
    if (text == "stock" || text == "etf" || text == "all") return std::nullopt;
    return "'" + std::string(text) + "' is none of stock, etf, all";
}

std::optional<std::string> RefuseExchanges(std::string_view text) {
    for (const std::string_view name : SplitAt(text, ',')) {
        if (!IsExchange(Trim(name)))
            return "'" + std::string(Trim(name)) + "' is no exchange that is known here";
    }
    return std::nullopt;
}

ExitStatus RunSymbols(BatchCall& call) {
    if (!call.arguments.Has(kOutOption)) return RefuseUsage(call, kOutOption, "is missing");
    const std::string name = call.arguments.Text(kOutOption);
    SourceCall sources(call);
    const SourceDefinition* source = sources.Choose(Capability::Symbols);
    if (sources.Status() != ExitStatus::Done) return sources.Status();
    if (source == nullptr) return RefuseUsage(call, kSourceOptionName, "is missing, and no source is chosen");
    SymbolChoice choice;
    for (const std::string_view exchange : SplitAt(call.arguments.Text(kExchangeOption), ',')) {
        if (!Trim(exchange).empty()) choice.exchanges.emplace_back(Trim(exchange));
    }
    choice.kind = call.arguments.Text(kTypeOption);
    choice.text = call.arguments.Text(kMatchOption);
    const NewTable table = CreateMarketTable(sources.World(), *source, choice, name);
    if (!table.refusal.empty()) return Refuse(call, OneLine(table.refusal));
    call.out << "Symbols: " << table.tickers << '\n';
    if (table.left > 0) call.out << "Left out, beyond what a table holds: " << table.left << '\n';
    call.out << "Saved: " << name << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
