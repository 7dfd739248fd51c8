#include "acquire/feeds/chosen_history.h"

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_history.h"

namespace brantlow {

namespace {

// What a run from the chosen source came to, told; nothing where the standard source serves.
std::optional<LiveReport> RunChosen(Session& session, const std::vector<std::string>& tickers) {
    std::error_code error;
    const SourceChoices choices = LoadSourceChoices(session.DataFolder(), error);
    if (!error && choices.For(Capability::History).empty()) return std::nullopt;
    const SourceCatalogue catalogue = LoadSources(session.DataFolder());
    const ChosenSource chosen = SourceOf(choices, catalogue, Capability::History);
    LiveReport report;
    if (error || chosen.source == nullptr) {
        session.person.Say(std::string(kSourceChoicesName) + ": " +
                           (error ? error.message() : chosen.refusal));
        return report;
    }
    CurlServiceWeb web(session.person);
    const SourceHosts hosts = LoadSourceHosts(session.DataFolder());
    SourceState state(session.DataFolder(), SystemSourceTime());
    SourceWorld world{session, web, hosts, state};
    report =
        PopulateWithFallback(world, *chosen.source, FallbackSourceOf(choices, catalogue).source, tickers);
    return report;
}

}  // namespace

std::optional<HistoryDownload> DownloadFromChosen(Session& session, const std::string& ticker) {
    const std::optional<LiveReport> report = RunChosen(session, {ticker});
    if (!report) return std::nullopt;
    HistoryDownload download;
    download.outcome = HistoryOutcome::NoData;
    download.error = report->fault;
    for (const LiveTicker& row : report->tickers) download.days += row.days;
    if (download.days > 0) download.outcome = HistoryOutcome::Stored;
    download.isChanged = download.days > 0;
    for (const LiveTicker& row : report->tickers) {
        if (row.outcome.result == SourceResult::UnknownSymbol) download.outcome = HistoryOutcome::Unknown;
        if (IsAnswer(row.outcome.result)) continue;
        download.outcome = HistoryOutcome::NoReply;
        download.why = report->title + ": " + OutcomeText(row.outcome);
    }
    if (download.error) download.outcome = HistoryOutcome::Failed;
    return download;
}

std::optional<PopulateRun> PopulateFromChosen(Session& session, const std::vector<std::string>& tickers) {
    const std::optional<LiveReport> report = RunChosen(session, tickers);
    if (!report) return std::nullopt;
    PopulateRun run;
    run.tickers = report->tickers.size();
    run.stored = report->Answered();
    run.stopped = report->stopped;
    run.error = report->fault;
    run.report = RunReportOf(*report, "Populate");
    return run;
}

}  // namespace brantlow
