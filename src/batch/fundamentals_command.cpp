#include "acquire/feeds/extended_fundamentals.h"
#include "acquire/web/curl_web.h"
#include "batch/commands.h"
#include "batch/table_calls.h"
#include "shell/memory_status.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// Makes the working file of the collection from the tickers of `name` and opens it; false after the sentence
// was written.
bool OpenFundamentals(BatchCall& call, const std::string& name, QuoteTable& table) {
    QuoteTable quotes;
    if (!LoadTable(call, name, quotes)) return false;
    const std::string working(kFundamentalsName);
    if (const auto error = CreateFundamentalFile(quotes, call.session.DataFolder())) {
        Refuse(call, working + " could not be written: " + error.message());
        return false;
    }
    call.session.CurrentFile = working;
    return LoadTable(call, working, table);
}

FundamentalsOutcome Collect(Session& session, QuoteTable& table) {
    CurlWeb web(session.person);
    MemoryUrlCache cache;
    const Hosts hosts = LoadHosts(session.DataFolder());
    return CollectExtendedFundamentals(session, {web, cache, hosts, ReadMemoryInfo}, table);
}

void PrintOutcome(BatchCall& call, const FundamentalsOutcome& outcome, std::size_t rows,
                  const std::string& savedAs) {
    call.out << "Saved: " << savedAs << '\n' << "Tickers: " << outcome.tickers;
    if (outcome.stopped) call.out << " of " << rows;
    call.out << '\n' << "Tickers without values: " << outcome.withoutValues.size() << '\n';
    for (const std::string& ticker : outcome.withoutValues) call.out << "  " << OneLine(ticker) << '\n';
}

}  // namespace

std::optional<std::string> RefuseFundamentalsName(std::string_view text) {
    return RefuseTableName(text, ".efq");
}

ExitStatus RunFundamentals(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    const FileKind kind = KindOf(name);
    if (kind == FileKind::Db) return Refuse(call, kFundamentalsOverTemplate);
    if (kind != FileKind::Ddq) return Refuse(call, kFundamentalsNeedQuoteFile);
    QuoteTable table;
    if (!OpenFundamentals(call, name, table)) return ExitStatus::Refused;

    Session& session = call.session;
    session.person.ShowTickerCount(table.TickerCount());
    if (call.arguments.Has("--out")) session.CurrentFile = call.arguments.Text("--out");
    const std::string savedAs = session.CurrentFile;
    const FundamentalsOutcome outcome = Collect(session, table);
    if (outcome.saveError) {
        return Refuse(call, savedAs + " could not be written: " + outcome.saveError.message());
    }
    PrintOutcome(call, outcome, table.TickerCount(), savedAs);
    return outcome.stopped ? ExitStatus::Interrupted : ExitStatus::Done;
}

}  // namespace brantlow
