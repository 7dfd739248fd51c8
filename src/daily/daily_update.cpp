#include "daily/daily_update.h"

#include "acquire/web/giving_up_web.h"
#include "base/former_files.h"
#include "base/text.h"
#include "daily/alarm_step.h"
#include "daily/fundamentals_step.h"
#include "daily/live_daily_update.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"
#include "splits/split_calendar_page.h"
#include "store/import_record.h"
#include "store/table_edit.h"
#include "store/update_list.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

SplitCheck AdjustSplits(const UpdateWork& work, WorkingSeries& series) {
    if (work.showAdjustSplits) work.showAdjustSplits(true);
    const SplitCalendarPage page = FetchSplitCalendarPage(work.web, work.hosts);
    SplitCheck check = CheckSplitCalendar(work.session, page.markup, work.memoryInfo(), series);
    if (!page.failure.empty()) check.report.Fail(page.failure);
    if (work.showAdjustSplits) work.showAdjustSplits(false);
    return check;
}

TickerTold WithDay(TickerTold told, const std::optional<DayImport>& database) {
    if (told.fate != TickerFate::Stored) return told;
    if (!database) return {std::move(told.ticker), TickerFate::Stored, "in the table only"};
    const auto found = database->byTicker.find(UpperCase(told.ticker));
    if (found == database->byTicker.end()) return told;
    const StoredDay& day = found->second;
    if (day.outcome == DayOutcome::Unchanged) return {std::move(told.ticker), TickerFate::NothingNew, {}};
    if (day.outcome != DayOutcome::Failed) return told;
    return {std::move(told.ticker), TickerFate::Failed, FailedSentence("The database", day.error)};
}

bool HasQuote(const UpdateOutcome& quotes) {
    return quotes.batches > quotes.failedBatches;
}

RunReport ReportOf(const DailyUpdate& update, const std::string& file) {
    RunReport report("Update of " + file, "quotes");
    for (const TickerTold& told : update.quotes.tickers) {
        TickerTold stored = WithDay(told, update.database);
        if (stored.why.empty()) stored.why = FilledWords(update.fundamentals, stored.ticker);
        report.Tell(stored.ticker, stored.fate, std::move(stored.why));
    }
    TellFundamentals(update.fundamentals, report);
    for (const std::string& failure : update.alarmFailures) report.Fail(failure);
    for (const std::string& ticker : update.quotes.alertsLeftOut) {
        report.Add("no alert for " + ticker + ", which cannot be asked for");
    }
    if (update.quotes.noTemplate) report.Fail("The settings hold no address of a source of quotes");
    if (update.quotes.error) report.Fail(Sentence(update.quotes.error));
    if (update.database && update.database->error && update.database->failed == 0) {
        report.Fail(FailedSentence("The database", update.database->error));
    }
    if (update.database && update.database->error.isHalfDone) report.MarkChanged();
    if (update.splits) report.TakeFailures(update.splits->report);
    if (update.splits && update.splits->isChanged) report.MarkChanged();
    if (update.isSaved && !update.saveError) report.MarkChanged();
    if (update.saveError) report.Fail(CannotBeSaved(file, update.saveError));
    if (update.database) TellHalfLines(update.database->halfLines, report);
    if (update.splits) TellHalfLines(update.splits->halfLines, report);
    if (update.stopped) report.Add("stopped");
    return report;
}

}  // namespace

DailyUpdate RunDailyUpdate(const UpdateWork& given, DayStore& days, WorkingSeries& series) {
    Session& session = given.session;
    DailyUpdate result;
    if (KindOf(session.CurrentFile) != FileKind::Ddq) return result;
    if (given.live != nullptr && given.live->quotes != nullptr) return RunLiveUpdate(given, days);
    GivingUpWeb web(given.web);
    const UpdateWork work{
        session,          given.table,           web, given.hosts, given.rows, given.alerted,
        given.memoryInfo, given.showAdjustSplits};
    session.person.ShowStatusWord(kStatusUpdating);
    // An update throws them away at its start.
    const FormerFiles former(
        {ImportRecordFile(session.AppPath), UpdateListPath(session.settings.QuoteFolder)});
    result.quotes = UpdateQuotes(work);
    // Where days are stored, their new list takes the place of the last one.
    const bool stores = StoresInDatabase(session.settings);
    if (!stores) DeleteUpdateList(session.settings.QuoteFolder);
    const auto goesOn = [&] { return session.run.ProcessCommand != kStopRun; };
    if (stores) result.database = ImportEndOfDay(session, work.table, days);
    if (!HasQuote(result.quotes)) {
        KeepFirst(
            result.quotes.error,
            FailedTo(FailureKind::Write, UpdateListPath(session.settings.QuoteFolder), former.PutBack()));
    }
    // A history without the day that could not be stored is no history to restate.
    const bool isStored = !result.quotes.error && (!result.database || !result.database->error);
    if (goesOn() && isStored && AdjustsSplits(session.settings)) result.splits = AdjustSplits(work, series);
    if (goesOn() && HasQuote(result.quotes)) result.fundamentals = AskFundamentals(given);
    result.alarmFailures = TellAlarms(session, result.quotes.alarms, given.post);
    // Without a reply there is nothing to save, and the file stays as it is written.
    result.isSaved = HasQuote(result.quotes) && SavesTable(session.settings);
    if (result.isSaved) result.saveError = AutomaticSave(session, work.table);
    session.person.ShowStatusWord(kStatusComplete);
    result.stopped = !goesOn();
    result.selectorFollows = goesOn() && RunsSelector(session.settings);
    result.report = ReportOf(result, session.CurrentFile);
    return result;
}

DailyUpdate RunChosenUpdate(const UpdateWork& work, const std::string& refusal, DayStore& days,
                            WorkingSeries& series) {
    if (refusal.empty()) return RunDailyUpdate(work, days, series);
    DailyUpdate result;
    result.refusal = refusal;
    result.report = RunReport("Update of " + work.session.CurrentFile, "quotes");
    result.report.Fail(refusal);
    return result;
}

}  // namespace brantlow
