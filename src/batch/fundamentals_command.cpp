#include "acquire/feeds/extended_fundamentals.h"
#include "acquire/web/curl_web.h"
#include "batch/commands.h"
#include "batch/live_commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "shell/memory_status.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// Makes the table of the collection from the tickers of `name`; its file is written once, at the end. False
// after the sentence was written.
bool OpenFundamentals(BatchCall& call, const std::string& name, QuoteTable& table) {
    QuoteTable quotes;
    if (!LoadTable(call, name, quotes)) return false;
    Session& session = call.session;
    session.CurrentFile = kFundamentalsName;
    LoadTableText(FundamentalFileText(quotes), FileKind::Efq, session.settings, session.clock.Today(), table,
                  nullptr);
    return true;
}

FundamentalsOutcome Collect(Session& session, const Hosts& hosts, QuoteTable& table) {
    CurlWeb web(session.person);
    MemoryUrlCache cache;
    const bool replaces = IsRegularFile(session.DataFile(session.CurrentFile));
    const FundamentalsEnd end{replaces ? ChangeKeeps::ForUndo : ChangeKeeps::UntilDone, false};
    return CollectExtendedFundamentals(session, {web, cache, hosts, ReadMemoryInfo}, table, end);
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
    if (const auto status = FundamentalsLive(call)) return *status;
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    const FileKind kind = KindOf(name);
    if (kind == FileKind::Db) return Refuse(call, kFundamentalsOverTemplate);
    if (kind != FileKind::Ddq) return Refuse(call, kFundamentalsNeedQuoteFile);
    QuoteTable table;
    if (!OpenFundamentals(call, name, table)) return ExitStatus::Refused;
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;

    Session& session = call.session;
    session.person.ShowTickerCount(table.TickerCount());
    if (call.arguments.Has(kOutOption)) session.CurrentFile = call.arguments.Text(kOutOption);
    const std::string savedAs = session.CurrentFile;
    const FundamentalsOutcome outcome = Collect(session, *hosts, table);
    if (outcome.saveError) return RefuseChange(call, kFundamentalsChange, outcome.saveError);
    if (outcome.report.Extent() == RunExtent::Nothing) return TellRun(call, outcome.report);
    PrintOutcome(call, outcome, table.TickerCount(), savedAs);
    const ExitStatus status = TellRun(call, outcome.report);
    return outcome.stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
