#include "daily/live_daily_update.h"

#include "base/former_files.h"
#include "daily/alarm_step.h"
#include "daily/fundamentals_step.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"
#include "store/import_record.h"
#include "store/table_edit.h"
#include "store/update_list.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

void Store(const UpdateWork& work, LiveUpdate& live, DayStore& days, DailyUpdate& result) {
    std::vector<Path> halfLines;
    const Failure fault = StoreMissedDays(*work.live, live, halfLines);
    result.liveSplits = live.applied;
    if (fault) {
        if (!live.report.fault) live.report.fault = fault;
        return;
    }
    result.database = ImportEndOfDay(work.session, work.table, days);
    result.database->stored += live.stored;
    result.database->halfLines.insert(result.database->halfLines.end(), halfLines.begin(), halfLines.end());
}

// The days of the update before stand last in the files then, and its list stays.
bool FoundNothingNew(const LiveUpdate& live, const DailyUpdate& result) {
    return live.missed.empty() && result.database && result.database->lines == 0;
}

void AdjustSplits(const UpdateWork& work, LiveReport& report, DailyUpdate& result) {
    if (work.showAdjustSplits) work.showAdjustSplits(true);
    LiveSplitCheck check = CheckSplitsOfTable(work);
    if (work.showAdjustSplits) work.showAdjustSplits(false);
    result.liveSplits.insert(result.liveSplits.end(), check.applied.begin(), check.applied.end());
    if (check.fault && !report.fault) report.fault = check.fault;
    if (!IsAnswer(check.outcome.result)) {
        result.splitFailure = "Splits from " + work.live->splits->title + ": " + OutcomeText(check.outcome);
    }
}

RunReport ReportOf(const DailyUpdate& update, LiveReport& live, const std::string& file) {
    for (LiveTicker& row : live.tickers) {
        if (row.outcome.Done()) row.outcome.words = FilledWords(update.fundamentals, row.ticker);
    }
    RunReport report = RunReportOf(live, "Update of " + file);
    TellFundamentals(update.fundamentals, report);
    for (const std::string& failure : update.alarmFailures) report.Fail(failure);
    if (!update.splitFailure.empty()) report.Fail(update.splitFailure);
    for (const AppliedSplit& split : update.liveSplits) report.Add(SplitSentence(split));
    if (update.database) TellHalfLines(update.database->halfLines, report);
    if (update.quotes.error) report.Fail(Sentence(update.quotes.error));
    if (update.database && update.database->error) {
        report.Fail(FailedSentence("The database", update.database->error));
        if (update.database->error.isHalfDone) report.MarkChanged();
    }
    if (update.saveError) report.Fail(CannotBeSaved(file, update.saveError));
    return report;
}

}  // namespace

DailyUpdate RunLiveUpdate(const UpdateWork& work, DayStore& days) {
    Session& session = work.session;
    DailyUpdate result;
    session.person.ShowStatusWord(kStatusUpdating);
    const FormerFiles former(
        {ImportRecordFile(session.AppPath), UpdateListPath(session.settings.QuoteFolder)});
    LiveUpdate live = UpdateFromSource(work);
    result.quotes = live.outcome;
    const auto goesOn = [&] { return session.run.ProcessCommand != kStopRun; };
    const bool any = live.report.Answered() > 0;
    if (any && StoresInDatabase(session.settings)) Store(work, live, days, result);
    if (!any || FoundNothingNew(live, result)) {
        const Path list = UpdateListPath(session.settings.QuoteFolder);
        KeepFirst(result.quotes.error, FailedTo(FailureKind::Write, list, former.PutBack()));
    }
    const bool checksSplits = goesOn() && any && work.live->splits != nullptr;
    if (checksSplits && AdjustsSplits(session.settings)) AdjustSplits(work, live.report, result);
    if (goesOn() && any) result.fundamentals = AskFundamentals(work);
    result.alarmFailures = TellAlarms(session, result.quotes.alarms, work.post);
    result.isSaved = any && SavesTable(session.settings);
    if (any) result.saveError = AutomaticSave(session, work.table);
    session.person.ShowStatusWord(kStatusComplete);
    result.stopped = !goesOn();
    result.selectorFollows = goesOn() && any && RunsSelector(session.settings);
    result.report = ReportOf(result, live.report, session.CurrentFile);
    result.live = std::move(live.report);
    return result;
}

}  // namespace brantlow
