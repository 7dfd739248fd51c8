#include "shell/frame/windows/update_commands.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "acquire/feeds/extended_fundamentals.h"
#include "alerts/alarm_mail.h"
#include "daily/daily_update.h"
#include "daily/live_setup.h"
#include "daily/unattended_run.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/status_words.h"
#include "splits/windows/frmAdjustSplits.h"
#include "store/file_names.h"
#include "store/quote_import.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// The daily run looks at the clock no less often than this.
constexpr int kClockMilliseconds = 1000;
// What the settings can let follow an update.
constexpr std::string_view kSelectorCommand = "mnuEvaluatePickStocks";

// As the batch tool's exit status has it.
int StatusOf(RunExtent extent) {
    constexpr int kNothing = 1;
    constexpr int kPartly = 3;
    if (extent == RunExtent::Whole) return 0;
    return extent == RunExtent::Partly ? kPartly : kNothing;
}

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
        {"mnuExtendedFundamentals", &UpdateCommands::ExtendedFundamentals},
        {"FundamentalData", &UpdateCommands::ExtendedFundamentalData},
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
    const UpdateWork work{frame_.session, form.Table(),
                          frame_.web,     frame_.hosts,
                          rows_,          alerted_,
                          memoryInfo_,    ShowsAdjustSplits(splits),
                          live.Sources(), frame_.isMailing() ? nullptr : &post};
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

void UpdateCommands::RunDaily() {
    frame_.person.BeginUnattended();
    lastStatus_ = StatusOf(RunNewest().Extent());
    const std::vector<std::string> unheard = frame_.person.EndUnattended();
    if (!unheard.empty()) frame_.notice(unheard.front());
    if (copies_) copies_->Done(lastStatus_);
}

RunReport UpdateCommands::RunNewest() {
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
    // The table of verdicts that the selector left on the screen is there in the morning too.
    const frmQuoteGrid* const shown = frame_.table.form();
    if (!shown || frame_.session.CurrentFile != kEvaluationsName) return report;
    if (const auto error = SaveEvaluations(frame_.session, shown->Table())) {
        report.Fail(CannotBeSaved(kEvaluationsName, error));
        frame_.tell(report);
    }
    return report;
}

// With an analysis of its own, so that an open chart keeps the one that it draws.
RunReport UpdateCommands::UpdateFile() {
    frmAdjustSplits splits(&frame_.window);
    const auto analysis = std::make_unique<Analysis>();
    frame_.runs.BeginWithoutTable();
    CurlMail mail(frame_.person);
    AlarmPost post{mail};
    post.waitsForServer = false;
    UnattendedRun run =
        RunUnattended({frame_.session, frame_.web, frame_.hosts, *analysis, alerted_, days_, memoryInfo_,
                       ShowsAdjustSplits(splits), frame_.isMailing() ? nullptr : &post});
    const bool stays = frame_.runs.End();
    frame_.tell(run.report);
    frame_.alarmsFired(run.update.quotes.alarms, post.told);
    const bool isShown = frame_.table.form() && frame_.session.CurrentFile == kEvaluationsName;
    if (stays && run.selection && isShown) frame_.table.show(kEvaluationsName);
    return std::move(run.report);
}

// Nothing while the run of today is still to come.
std::optional<int> UpdateCommands::StatusOfToday() {
    switch (dailyRun_.AskForToday(frame_.session.settings, frame_.session.clock)) {
        case DailyRun::Today::NotChosen:
            return 0;
        case DailyRun::Today::Over:
            // A run at work tells its copies at its end.
            if (!frame_.person.InRun()) return lastStatus_;
            break;
        case DailyRun::Today::Comes:
            break;
    }
    return std::nullopt;
}

void UpdateCommands::ExtendedFundamentalData() {
    if (KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kFundamentalsNeedQuoteFile);
        return;
    }
    ExtendedFundamentals();
}

void UpdateCommands::ExtendedFundamentals() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.person.InRun()) return;
    if (KindOf(frame_.session.CurrentFile) == FileKind::Db) {
        frame_.person.Say(kFundamentalsOverTemplate);
        return;
    }
    if (const Failure fault = CreateFundamentalFile(form->Table(), frame_.session)) {
        frame_.person.Say(ChangeSentence(kFundamentalsChange, fault));
        return;
    }
    if (frame_.table.show(kFundamentalsName)) CollectFundamentals(*frame_.table.form());
}

// The table counts as new afterwards and goes by the day's name. One that was closed meanwhile goes now.
void UpdateCommands::CollectFundamentals(frmQuoteGrid& form) {
    const FundamentalSources sources{frame_.web, cache_, frame_.hosts, memoryInfo_};
    frame_.person.ShowStatusWord(kStatusUpdating);
    frame_.runs.BeginFilling(form);
    const FundamentalsOutcome outcome = CollectExtendedFundamentals(frame_.session, sources, form.Table());
    const bool stays = frame_.runs.EndOn(form);
    frame_.tell(outcome.report);
    frame_.table.nameChanged();
    if (frame_.runs.TakeCloseTable() && stays) frame_.table.close();
    if (outcome.saveError) frame_.person.Say(ChangeSentence(kFundamentalsChange, outcome.saveError));
}

void UpdateCommands::ImportQuoteFile() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) {
        frame_.person.Say(kImportNeedsQuoteFile);
        return;
    }
    const QuoteImport import = ImportQuotes(frame_.session, form->Table(), days_, nullptr);
    form->TableChanged();
    frame_.tell(import.report);
    if (import.outcome == ImportOutcome::Failed) {
        const std::string file = ImportFile(frame_.session.AppPath, frame_.session.settings).string();
        frame_.person.Say(ChangeSentence("The import of " + file, import.error));
    }
}

void UpdateCommands::StartClock() {
    auto* clock = new QTimer(&frame_.window);
    clock->setObjectName(QStringLiteral("tmrDailyRun"));
    clock->setTimerType(Qt::PreciseTimer);
    QObject::connect(clock, &QTimer::timeout, &frame_.window, [this] { WaitForDailyRun(); });
    clock->start(kClockMilliseconds);
    copies_ = new HandoverServer(
        frame_.session.AppPath, [this] { return StatusOfToday(); }, &frame_.window);
}

// Not in the midst of a run or of a question: the look at the clock comes when it is over, and the minute
// that passed meanwhile is made up.
void UpdateCommands::WaitForDailyRun() {
    if (frame_.person.InRun() || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    if (dailyRun_.Poll(frame_.session.settings, frame_.session.clock)) RunDaily();
}

}  // namespace brantlow
