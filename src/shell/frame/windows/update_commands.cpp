#include "shell/frame/windows/update_commands.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include "acquire/feeds/extended_fundamentals.h"
#include "daily/daily_update.h"
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

// The first thing that could not be written, as a sentence; empty when everything could.
std::string FailureOf(const DailyUpdate& update, const std::string& name) {
    const auto sentence = [](std::string_view what, const std::error_code& error) {
        return std::string(what) + " cannot be written (" + error.message() + ")";
    };
    if (update.quotes.error) return sentence("Import.Txt", update.quotes.error);
    if (update.database && update.database->error) return sentence("The database", update.database->error);
    if (update.splits && update.splits->error) return sentence("The database", update.splits->error);
    if (update.saveError) return sentence(name, update.saveError);
    return {};
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
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.person.InRun()) return;
    if (KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kUpdateNeedsQuoteFile);
        return;
    }
    const std::string name = frame_.session.CurrentFile;
    frame_.runs.Begin(*form);
    const DailyUpdate update = RunUpdate(*form);
    if (!frame_.runs.EndOn(*form)) return;
    if (update.selectorFollows) frame_.run(kSelectorCommand);
    const std::string failure = FailureOf(update, name);
    if (!failure.empty()) frame_.person.Say(failure);
}

DailyUpdate UpdateCommands::RunUpdate(frmQuoteGrid& form) {
    frmAdjustSplits splits(&frame_.window);
    const auto showAdjustSplits = [&](bool shown) {
        splits.setEnabled(true);
        splits.setVisible(shown);
        frame_.person.PumpEvents();
    };
    const UpdateWork work{frame_.session, form.Table(), frame_.web,  frame_.hosts,
                          rows_,          alerted_,     memoryInfo_, showAdjustSplits};
    return RunDailyUpdate(work, days_, analysis_.series);
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
    const std::error_code error = CreateFundamentalFile(form->Table(), frame_.session.DataFolder());
    if (error) {
        frame_.person.Say(std::string(kFundamentalsName) + ": cannot be saved (" + error.message() + ")");
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
    frame_.table.nameChanged();
    if (frame_.runs.TakeCloseTable() && stays) frame_.table.close();
    if (outcome.saveError) {
        frame_.person.Say(std::string(kFundamentalsName) + ": cannot be saved (" +
                          outcome.saveError.message() + ")");
    }
}

void UpdateCommands::ImportQuoteFile() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) {
        frame_.person.Say(kImportNeedsQuoteFile);
        return;
    }
    const QuoteImport import = ImportQuotes(frame_.session, form->Table(), days_, nullptr);
    form->TableChanged();
    if (import.outcome == ImportOutcome::Failed) {
        frame_.person.Say(ImportFile(frame_.session.AppPath, frame_.session.settings).string() +
                          ": the import failed and the file stays (" + import.error.message() + ")");
    }
}

void UpdateCommands::StartClock() {
    auto* clock = new QTimer(&frame_.window);
    clock->setObjectName(QStringLiteral("tmrDailyRun"));
    clock->setTimerType(Qt::PreciseTimer);
    QObject::connect(clock, &QTimer::timeout, &frame_.window, [this] { WaitForDailyRun(); });
    clock->start(kClockMilliseconds);
}

// Not in the midst of a run or of a question: the look at the clock comes when it is over.
void UpdateCommands::WaitForDailyRun() {
    if (frame_.person.InRun() || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    if (!dailyRun_.Poll(frame_.session.settings, frame_.session.clock)) return;
    if (KindOf(frame_.session.CurrentFile) == FileKind::Ddq) CmdUpdateQuotes();
}

}  // namespace brantlow
