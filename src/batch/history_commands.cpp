#include <algorithm>
#include <array>

#include "acquire/feeds/history_download.h"
#include "acquire/web/curl_web.h"
#include "acquire/web/giving_up_web.h"
#include "batch/commands.h"
#include "batch/live_commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 4> kYearChoices = {"2", "5", "10", "20"};

// A ticker that no request can be made for: it is refused by name.
bool IsUnasked(HistoryOutcome outcome) {
    return outcome == HistoryOutcome::NoFiles || outcome == HistoryOutcome::LeftOut;
}

// What a ticker's line says where its history was not stored.
std::string_view OutcomeWords(HistoryOutcome outcome) {
    const bool isAnswer = outcome == HistoryOutcome::NoData || outcome == HistoryOutcome::Unknown ||
                          outcome == HistoryOutcome::NoTicker;
    return isAnswer ? "no data" : "not downloaded";
}

void PrintOutcome(BatchCall& call, const std::string& ticker, const HistoryDownload& download) {
    call.out << OneLine(ticker) << ": ";
    if (download.outcome == HistoryOutcome::Stored) {
        call.out << download.days << " days\n";
    } else {
        call.out << OutcomeWords(download.outcome) << '\n';
    }
}

void PrintRun(BatchCall& call, const PopulateRun& run, std::size_t rows) {
    call.out << "Tickers: " << run.tickers;
    if (run.stopped) call.out << " of " << rows;
    call.out << "\nWith data: " << run.stored << '\n';
}

}  // namespace

std::optional<std::string> RefuseYears(std::string_view text) {
    if (std::find(kYearChoices.begin(), kYearChoices.end(), text) != kYearChoices.end()) return std::nullopt;
    return "'" + std::string(text) + "' is none of 2, 5, 10, 20";
}

bool TakeYears(BatchCall& call) {
    Session& session = call.session;
    if (!call.arguments.Has("--years")) {
        if (HasHistoryYears(session.settings)) return true;
        session.person.Say(kSelectTimeFrame);
        return false;
    }
    const std::string years = call.arguments.Text("--years");
    SetText(session.settings, *kHistoryYears.row, years);
    return true;
}

ExitStatus RunHistory(BatchCall& call) {
    if (const auto status = HistoryLive(call)) return *status;
    Session& session = call.session;
    CurlWeb network(session.person);
    GivingUpWeb web(network);
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    RunReport report("History", "histories");
    bool isRefused = false;
    for (const std::string& ticker : call.arguments.operands) {
        if (call.interrupted()) return ExitStatus::Interrupted;
        const HistoryDownload download = DownloadTickerHistory(session, web, *hosts, ticker);
        if (IsUnasked(download.outcome)) {
            Refuse(call, ticker + ": " + download.why);
            isRefused = true;
            continue;
        }
        PrintOutcome(call, ticker, download);
        if (download.outcome == HistoryOutcome::NoSource) return ExitStatus::Refused;
        if (download.outcome == HistoryOutcome::DataExists) {
            isRefused = true;
        } else {
            TellHistory(ticker, download, report);
        }
    }
    if (report.Tickers().empty()) return isRefused ? ExitStatus::Refused : ExitStatus::Done;
    const ExitStatus status = TellRun(call, report);
    return isRefused && status == ExitStatus::Done ? ExitStatus::Partly : status;
}

ExitStatus RunPopulate(BatchCall& call) {
    if (const auto status = PopulateLive(call)) return *status;
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    QuoteTable table;
    if (!LoadTable(call, name, table) || !TakeYears(call)) return ExitStatus::Refused;
    Session& session = call.session;
    session.CurrentFile = name;
    session.person.ShowTickerCount(table.TickerCount());
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    CurlWeb web(session.person);
    const PopulateRun run = PopulateDatabase(
        session, web, *hosts, table, call.arguments.Has("--years") ? Years::Stored : Years::AsTheyAre);
    PrintRun(call, run, table.TickerCount());
    const ExitStatus status = TellRun(call, run.report);
    return run.stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
