#include "acquire/feeds/extended_fundamentals.h"
#include "acquire/web/curl_web.h"
#include "base/former_files.h"
#include "batch/commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "shell/memory_status.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

std::string NotWritten(const std::string& name, const std::error_code& error) {
    return name + " could not be written: " + error.message();
}

// Makes the working file of the collection from the tickers of `name` and opens it; false after the sentence
// was written.
bool OpenFundamentals(BatchCall& call, const std::string& name, QuoteTable& table) {
    QuoteTable quotes;
    if (!LoadTable(call, name, quotes)) return false;
    const std::string working(kFundamentalsName);
    if (const auto error = CreateFundamentalFile(quotes, call.session.DataFolder())) {
        Refuse(call, NotWritten(working, error));
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
    const Path dataFolder = call.session.DataFolder();
    const std::string out = call.arguments.Text("--out");
    const FormerFiles former(
        {dataFolder / kFundamentalsName, dataFolder / (out.empty() ? std::string(kFundamentalsName) : out)});
    if (!OpenFundamentals(call, name, table)) return ExitStatus::Refused;

    Session& session = call.session;
    session.person.ShowTickerCount(table.TickerCount());
    if (call.arguments.Has("--out")) session.CurrentFile = call.arguments.Text("--out");
    const std::string savedAs = session.CurrentFile;
    const FundamentalsOutcome outcome = Collect(session, table);
    if (outcome.saveError) return Refuse(call, NotWritten(savedAs, outcome.saveError));
    if (outcome.report.Extent() == RunExtent::Nothing) {
        if (const auto error = former.PutBack()) return Refuse(call, NotWritten(savedAs, error));
        return TellRun(call, outcome.report);
    }
    PrintOutcome(call, outcome, table.TickerCount(), savedAs);
    const ExitStatus status = TellRun(call, outcome.report);
    return outcome.stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
