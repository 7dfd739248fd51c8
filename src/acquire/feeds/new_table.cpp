#include "acquire/feeds/new_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/text.h"
#include "store/file_names.h"
#include "store/table_edit.h"
#include "store/table_files.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

constexpr std::string_view kEnding = ".ddq";
constexpr std::string_view kSeparators = " ,;\t\r\n";

}  // namespace

std::string TableNameOf(std::string_view typed) {
    std::string name(Trim(typed));
    if (!name.empty() && !name.ends_with(kEnding)) name += kEnding;
    return name;
}

std::string NewTableRefusal(const Session& session, std::string_view name) {
    const Path file(name);
    if (name.empty() || file.stem().empty() || file.filename() == kEnding) return "The table needs a name.";
    const bool leadsOut = file.is_absolute() || name.find('\0') != std::string_view::npos ||
                          std::find(file.begin(), file.end(), "..") != file.end();
    if (leadsOut || KindOf(std::string(name)) != FileKind::Ddq) {
        return "'" + std::string(name) + "' cannot be the name of a table.";
    }
    std::error_code error;
    const bool exists = std::filesystem::exists(session.DataFile(name), error);
    return exists ? std::string(name) + ": exists already" : std::string();
}

std::string FreeTableName(const Session& session, std::string_view stem) {
    std::string name = fmt::format("{}{}", stem, kEnding);
    constexpr int kMost = 1000;
    for (int i = 2; i < kMost && !NewTableRefusal(session, name).empty(); ++i) {
        name = fmt::format("{} {}{}", stem, i, kEnding);
    }
    return name;
}

TypedTickers ReadTypedTickers(std::string_view text) {
    TypedTickers typed;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(kSeparators, at)) != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, at), text.size());
        const std::string_view word = text.substr(at, end - at);
        const bool joins = IsPreferredMark(word) && at > 0 && text[at - 1] == ' ' && !typed.tickers.empty();
        if (joins) {
            typed.tickers.back().append(" ").append(word);
        } else {
            typed.tickers.push_back(UpperCase(word));
        }
        at = end;
    }
    std::vector<std::string> once;
    for (const std::string& ticker : typed.tickers) {
        if (std::find(once.begin(), once.end(), ticker) == once.end()) once.push_back(ticker);
        if (typed.refusal.empty() && !HasDatabaseFiles(ticker)) {
            typed.refusal = ticker + ": no file can have this name, so the ticker can have no history";
        }
    }
    typed.tickers = std::move(once);
    return typed;
}

NewTable CreateTable(const Session& session, const std::vector<SourceSymbol>& symbols,
                     std::string_view name) {
    NewTable table;
    table.refusal = NewTableRefusal(session, name);
    if (!table.refusal.empty()) return table;
    if (const auto failed = SaveQuoteTable(TableOfSymbols(symbols), session.DataFile(name))) {
        table.refusal = std::string(name) + " could not be written: " + failed.message();
        return table;
    }
    table.tickers = symbols.size();
    return table;
}

NewTable CreateMarketTable(SourceWorld& world, const SourceDefinition& source, const SymbolChoice& choice,
                           std::string_view name) {
    NewTable table;
    const std::string refusal = NewTableRefusal(world.session, name);
    if (!refusal.empty()) return {refusal, 0, 0};
    const SymbolList list = AskSymbols(world, source, choice);
    if (!list.outcome.Done()) return {source.title + ": " + OutcomeText(list.outcome), 0, 0};
    if (list.symbols.empty()) return {source.title + " lists no such symbol; nothing was written", 0, 0};
    table = CreateTable(world.session, list.symbols, name);
    table.left = list.left;
    return table;
}

}  // namespace brantlow
