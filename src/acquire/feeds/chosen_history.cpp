#include "acquire/feeds/chosen_history.h"

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_history.h"
#include "acquire/feeds/live/live_world.h"
#include "acquire/feeds/live/source_consent.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

// What a run over the chosen sources came to, or why nothing was asked; nothing where the standard source
// serves.
struct ChosenRun {
    LiveReport report;
    std::string refusal = {};
};
template <class Populate>
std::optional<ChosenRun> RunChosen(Session& session, Web& web, const Populate& populate) {
    std::string refusal = UnreadableSettings(SettingsFile::Src, session.AppPath, session.settings);
    if (refusal.empty() && ChosenName(session.settings, Capability::History).empty()) return std::nullopt;
    const SourceCatalogue catalogue = LoadSources(session.DataFolder());
    const ChosenSource chosen = SourceOf(session.settings, catalogue, Capability::History);
    const ChosenSource fallback = FallbackSourceOf(session.settings, catalogue);
    if (refusal.empty()) refusal = chosen.refusal.empty() ? fallback.refusal : chosen.refusal;
    LiveWorld live(session, web);
    for (const SourceDefinition* source : {chosen.source, fallback.source}) {
        const bool isRefused = refusal.empty() && source != nullptr && !MayBeAsked(live.World(), *source);
        if (isRefused) refusal = ConsentRefusal(*source);
    }
    if (!refusal.empty()) {
        session.person.Say(refusal);
        return ChosenRun{{}, refusal};
    }
    return ChosenRun{populate(live.World(), *chosen.source, PopulateWith{.fallback = fallback.source})};
}

}  // namespace

std::optional<HistoryDownload> DownloadFromChosen(Session& session, Web& web, const std::string& ticker,
                                                  FileChange& change) {
    const std::optional<ChosenRun> run = RunChosen(
        session, web, [&](SourceWorld& world, const SourceDefinition& source, const PopulateWith& with) {
            return PreparePopulate(world, source, {ticker}, with, change);
        });
    if (!run) return std::nullopt;
    const LiveReport* const report = &run->report;
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

std::optional<PopulateRun> PopulateFromChosen(Session& session, Web& web,
                                              const std::vector<std::string>& tickers, Years years) {
    const std::optional<ChosenRun> chosen =
        RunChosen(session, web, [&](SourceWorld& world, const SourceDefinition& source, PopulateWith with) {
            with.storesYears = years == Years::Stored;
            return PopulateFromSource(world, source, tickers, with);
        });
    if (!chosen) return std::nullopt;
    const std::string what = "Populate of " + session.CurrentFile;
    PopulateRun run;
    if (!chosen->refusal.empty()) {
        run.report = RunReport(what, "histories");
        run.report.Fail(chosen->refusal);
        return run;
    }
    const LiveReport* const report = &chosen->report;
    run.tickers = report->tickers.size();
    run.stored = report->Answered();
    run.stopped = report->stopped;
    run.error = report->fault;
    run.report = RunReportOf(*report, what);
    return run;
}

}  // namespace brantlow
