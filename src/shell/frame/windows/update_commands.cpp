#include "shell/frame/windows/update_commands.h"

#include <QMainWindow>
#include <memory>

#include "alerts/alarm_mail.h"
#include "base/undo_store.h"
#include "daily/daily_update.h"
#include "daily/live_setup.h"
#include "daily/unattended_run.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session_change.h"
#include "splits/windows/frmAdjustSplits.h"
#include "store/file_names.h"
#include "store/file_stamp.h"
#include "store/quote_import.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// What the settings can let follow an update.
constexpr std::string_view kSelectorCommand = "mnuEvaluatePickStocks";

// The first thing that could not be written, as a sentence; empty when everything could.
std::string FirstFailure(const DailyUpdate& update, const std::string& name) {
    if (update.quotes.error) return Sentence(update.quotes.error);
    if (update.database && update.database->error) return Sentence(update.database->error);
    if (update.splits && update.splits->error)
        return ChangeSentence(kSplitCalendarChange, update.splits->error);
    if (update.saveError) return CannotBeSaved(name, update.saveError);
    return update.refusal;
}

}  // namespace

CommandRows UpdateCommands::Rows() {
    static constexpr SubjectRow<UpdateCommands> kRows[] = {
        {"mnuFileImportQuotes", &UpdateCommands::ImportQuoteFile},
        {"mnuFileUpdateQuotes", &UpdateCommands::CmdUpdateQuotes},
    };
    return RowsOf(*this, kRows);
}

void UpdateCommands::CmdUpdateQuotes() {
    Update();
}

bool UpdateCommands::Update() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.person.InRun()) return false;
    if (KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kUpdateNeedsQuoteFile);
        return false;
    }
    RunReport report;
    return UpdateOpenTable(*form, false, report);
}

bool UpdateCommands::UpdateOpenTable(frmQuoteGrid& form, bool isDaily, RunReport& report) {
    const std::string name = frame_.session.CurrentFile;
    frame_.runs.Begin(form);
    const DailyUpdate update = RunUpdate(form);
    const bool stays = frame_.runs.EndOn(form);
    report = update.report;
    if (!update.quotes.noTemplate) frame_.tell(report);
    frame_.alarmsFired(update.quotes.alarms, mail_);
    if (!stays) return false;
    if (update.selectorFollows) frame_.run(kSelectorCommand);
    const std::string failure = FirstFailure(update, name);
    // Nobody may be there to answer; the line and the list tell it.
    if (!failure.empty() && !isDaily) frame_.person.Say(failure);
    return true;
}

DailyUpdate UpdateCommands::RunUpdate(frmQuoteGrid& form) {
    frmAdjustSplits splits(&frame_.window);
    LiveSetup live(frame_.session, frame_.web);
    CurlMail mail(frame_.person);
    AlarmPost post{mail};
    post.waitsForServer = false;
    const UpdateWork work{frame_.session,
                          form.Table(),
                          frame_.web,
                          frame_.hosts,
                          rows_,
                          alerted_,
                          frame_.runs.MemoryInfo(),
                          ShowsAdjustSplits(splits),
                          live.Sources(),
                          frame_.isMailing() ? nullptr : &post};
    DailyUpdate update = RunChosenUpdate(work, live.Refusal(), days_, analysis_.series);
    mail_ = post.told;
    return update;
}

std::function<void(bool)> UpdateCommands::ShowsAdjustSplits(frmAdjustSplits& window) {
    return [this, &window](bool shown) {
        window.setEnabled(true);
        window.setVisible(shown);
        frame_.person.PumpEvents();
    };
}

RunReport UpdateCommands::UpdateNewest() {
    const std::string unread =
        StillUnreadable(kDownloadSettings, frame_.session.AppPath, frame_.session.settings);
    if (!unread.empty()) {
        RunReport refused("Daily update", "quotes");
        refused.Fail(unread);
        frame_.tell(refused);
        return refused;
    }
    const std::string newest = NewestQuoteFile(frame_.session);
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.session.CurrentFile != newest) return UpdateFile();
    RunReport report;
    if (!UpdateOpenTable(*form, true, report)) return report;
    KeepVerdicts(report);
    return report;
}

// The table of verdicts that the selector left on the screen is there in the morning too.
void UpdateCommands::KeepVerdicts(RunReport& report) {
    const frmQuoteGrid* const shown = frame_.table.form();
    if (!shown || frame_.session.CurrentFile != kEvaluationsName) return;
    if (const auto error = SaveEvaluations(frame_.session, shown->Table())) {
        report.Fail(CannotBeSaved(kEvaluationsName, error));
        frame_.tell(report);
    }
}

// With an analysis of its own, so that an open chart keeps the one that it draws.
RunReport UpdateCommands::UpdateFile() {
    frmAdjustSplits splits(&frame_.window);
    const auto analysis = std::make_unique<Analysis>();
    frame_.runs.BeginWithoutTable();
    CurlMail mail(frame_.person);
    AlarmPost post{mail};
    post.waitsForServer = false;
    UnattendedRun run = RunUnattended({frame_.session, frame_.web, frame_.hosts, *analysis, alerted_, days_,
                                       frame_.runs.MemoryInfo(), ShowsAdjustSplits(splits),
                                       frame_.isMailing() ? nullptr : &post});
    const bool stays = frame_.runs.End();
    frame_.tell(run.report);
    frame_.alarmsFired(run.update.quotes.alarms, post.told);
    const bool isShown = frame_.table.form() && frame_.session.CurrentFile == kEvaluationsName;
    if (stays && run.selection && isShown) frame_.table.show(kEvaluationsName);
    return std::move(run.report);
}

void UpdateCommands::ImportQuoteFile() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) {
        frame_.person.Say(kImportNeedsQuoteFile);
        return;
    }
    if (frame_.person.InRun()) return;
    frame_.runs.Begin(*form, RunStop::TakesAllBack);
    BeginRun(frame_.session.run);
    QuoteTable before = form->Table();
    const QuoteImport import = ImportQuotes(frame_.session, form->Table(), days_, nullptr);
    form->TableChanged();
    if (import.outcome == ImportOutcome::Done) beforeImport_ = {NewestChange(), form, std::move(before)};
    const bool stays = frame_.runs.EndOn(*form);
    frame_.person.HideProgress();
    frame_.tell(import.report);
    if (!stays) return;
    if (import.outcome == ImportOutcome::Failed) {
        const std::string file = ImportFile(frame_.session.AppPath, frame_.session.settings).string();
        frame_.person.Say(ChangeSentence("The import of " + file, import.error));
    }
}

std::size_t UpdateCommands::NewestChange() const {
    const std::vector<KeptChange> changes = KeptChanges(ChangePlaceOf(frame_.session));
    return changes.empty() ? 0 : changes.front().number;
}

void UpdateCommands::ShowUndone(std::size_t change, const std::function<void()>& show) {
    frmQuoteGrid* form = frame_.table.form();
    if (!form || beforeImport_.form != form || beforeImport_.change != change) return show();
    const std::string name = frame_.session.CurrentFile;
    QuoteTable present = form->Table();
    show();
    form = frame_.table.form();
    if (!form || frame_.session.CurrentFile != name) return;
    form->Table() = std::move(beforeImport_.table);
    const Path file = frame_.session.DataFile(name);
    form->Table().SetSource(file, StampOf(file));
    form->TableChanged();
    frame_.person.ShowTickerCount(form->Table().TickerCount());
    beforeImport_ = {NewestChange(), form, std::move(present)};
}

}  // namespace brantlow
