#include <algorithm>
#include <array>

#include "acquire/feeds/history_download.h"
#include "acquire/web/curl_web.h"
#include "batch/commands.h"
#include "batch/table_calls.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 4> kYearChoices = {"2", "5", "10", "20"};
constexpr std::size_t kHistoryYearsLine = 6;

ExitStatus RefuseDatabaseError(BatchCall& call, const std::string& what, const std::error_code& error) {
    return Refuse(call, what + " could not be written: " + error.message());
}

// Prints what became of one ticker.
ExitStatus TellOutcome(BatchCall& call, const std::string& ticker, const HistoryDownload& download) {
    switch (download.outcome) {
        case HistoryOutcome::Stored:
            call.out << OneLine(ticker) << ": " << download.days << " days\n";
            return ExitStatus::Done;
        case HistoryOutcome::NoData:
        case HistoryOutcome::NoTicker:
            call.out << OneLine(ticker) << ": no data\n";
            return ExitStatus::Done;
        case HistoryOutcome::NoFiles:
            return Refuse(call, ticker + ": no file can have this name, so the ticker has no history");
        case HistoryOutcome::Failed:
            return RefuseDatabaseError(call, ticker + ": a file of the history", download.error);
        case HistoryOutcome::DataExists:
        case HistoryOutcome::NoSource:
            break;
    }
    call.out << OneLine(ticker) << ": not downloaded\n";
    return ExitStatus::Refused;
}

// Stores the chosen years as the window does before it populates.
bool TakeYears(BatchCall& call) {
    if (!call.arguments.Has("--years")) return true;
    Session& session = call.session;
    const std::string years = call.arguments.Text("--years");
    session.settings.DataSettings.Set(kHistoryYearsLine, Value::Parse(years));
    const auto error = WriteSettingsFile(SettingsFile::Data, session.AppPath, session.settings);
    if (error) RefuseDatabaseError(call, SettingsFileName(SettingsFile::Data), error);
    return !error;
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

ExitStatus RunHistory(BatchCall& call) {
    Session& session = call.session;
    CurlWeb web(session.person);
    const Hosts hosts = LoadHosts(session.DataFolder());
    ExitStatus status = ExitStatus::Done;
    for (const std::string& ticker : call.arguments.operands) {
        if (call.interrupted()) return ExitStatus::Interrupted;
        const HistoryDownload download = DownloadTickerHistory(session, web, hosts, ticker);
        const ExitStatus told = TellOutcome(call, ticker, download);
        if (told != ExitStatus::Done) status = told;
        if (download.outcome == HistoryOutcome::NoSource) break;
    }
    return status;
}

ExitStatus RunPopulate(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    QuoteTable table;
    if (!LoadTable(call, name, table) || !TakeYears(call)) return ExitStatus::Refused;
    Session& session = call.session;
    session.CurrentFile = name;
    session.person.ShowTickerCount(table.TickerCount());
    CurlWeb web(session.person);
    const PopulateRun run = PopulateDatabase(session, web, LoadHosts(session.DataFolder()), table);
    PrintRun(call, run, table.TickerCount());
    if (run.error) return RefuseDatabaseError(call, "A file of the quote database", run.error);
    return run.stopped ? ExitStatus::Interrupted : ExitStatus::Done;
}

}  // namespace brantlow
