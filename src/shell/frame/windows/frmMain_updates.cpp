// What fills the main frame's tables from the web: the end-of-day update, by hand and at its minute, and the
// collection of extended fundamentals. The back-up at exit stands with them.
#include <QApplication>
#include <QTimer>
#include <utility>

#include "acquire/feeds/extended_fundamentals.h"
#include "daily/daily_update.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "splits/windows/frmAdjustSplits.h"
#include "store/exit_back_up.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// The daily run looks at the clock no less often than this.
constexpr int kClockMilliseconds = 1000;

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

void frmMain::CmdUpdateQuotes() {
    if (!quoteForm_ || person_.InRun()) return;
    if (KindOf(session_.CurrentFile) != FileKind::Ddq) {
        person_.Say(kUpdateNeedsQuoteFile);
        return;
    }
    const std::string name = session_.CurrentFile;
    BeginTableRun();
    const DailyUpdate update = RunUpdate();
    if (!EndTableRun()) return;
    if (update.selectorFollows) StockSelector();
    const std::string failure = FailureOf(update, name);
    if (!failure.empty()) person_.Say(failure);
}

DailyUpdate frmMain::RunUpdate() {
    frmAdjustSplits splits(this);
    const auto showAdjustSplits = [&](bool shown) {
        splits.setEnabled(true);
        splits.setVisible(shown);
        person_.PumpEvents();
    };
    const UpdateWork work{session_,
                          quoteForm_->Table(),
                          web_,
                          hosts_,
                          updates_.rows,
                          updates_.alerted,
                          updates_.memoryInfo,
                          showAdjustSplits};
    return RunDailyUpdate(work, days_, analysis_.series);
}

void frmMain::ExtendedFundamentalData() {
    if (KindOf(session_.CurrentFile) != FileKind::Ddq) {
        person_.Say(kFundamentalsNeedQuoteFile);
        return;
    }
    ExtendedFundamentals();
}

void frmMain::ExtendedFundamentals() {
    if (!quoteForm_ || person_.InRun()) return;
    if (KindOf(session_.CurrentFile) == FileKind::Db) {
        person_.Say(kFundamentalsOverTemplate);
        return;
    }
    const std::error_code error = CreateFundamentalFile(quoteForm_->Table(), session_.DataFolder());
    if (error) {
        person_.Say(std::string(kFundamentalsName) + ": cannot be saved (" + error.message() + ")");
        return;
    }
    CheckActivefrm();
    session_.CurrentFile = kFundamentalsName;
    if (ShowCurrentFile(session_, Windows())) CollectFundamentals();
}

// The table counts as new afterwards and goes by the day's name. One that was closed meanwhile goes now.
void frmMain::CollectFundamentals() {
    const FundamentalSources sources{web_, browser_.cache ? *browser_.cache : updates_.cache, hosts_,
                                     updates_.memoryInfo};
    updates_.collecting = true;
    person_.ShowStatusWord(kStatusUpdating);
    BeginTableRun();
    const FundamentalsOutcome outcome = CollectExtendedFundamentals(session_, sources, quoteForm_->Table());
    updates_.collecting = false;
    const bool stays = EndTableRun();
    NameChanged();
    if (std::exchange(updates_.closeAfterRun, false) && stays) CloseTable();
    if (outcome.saveError) {
        person_.Say(std::string(kFundamentalsName) + ": cannot be saved (" + outcome.saveError.message() +
                    ")");
    }
}

void frmMain::BackUpBeforeExit() {
    const Date today = session_.clock.Today();
    if (!BackUpIsDue(session_.settings.DataSettings, today)) return;
    person_.ShowStatusWord(kStatusSaving);
    session_.run.ProgressLastShown = 0;
    session_.ProgressAlways = "True";
    const ExitBackUp backUp = BackUpAtExit(session_.AppPath, today, session_.settings, person_);
    session_.ProgressAlways = "False";
    person_.ShowStatusWord(kStatusComplete);
    if (backUp.settingsError) {
        person_.Say(SettingsFileName(SettingsFile::Data) + ": cannot be saved (" +
                    backUp.settingsError.message() + ")");
    }
}

void frmMain::StartClock() {
    auto* clock = new QTimer(this);
    clock->setObjectName(QStringLiteral("tmrDailyRun"));
    clock->setTimerType(Qt::PreciseTimer);
    connect(clock, &QTimer::timeout, this, &frmMain::WaitForDailyRun);
    clock->start(kClockMilliseconds);
}

// Not in the midst of a run or of a question: the look at the clock comes when it is over.
void frmMain::WaitForDailyRun() {
    if (person_.InRun() || QApplication::activeModalWidget() || QApplication::activePopupWidget()) return;
    if (!updates_.dailyRun.Poll(session_.settings, session_.clock)) return;
    if (KindOf(session_.CurrentFile) == FileKind::Ddq) CmdUpdateQuotes();
}

}  // namespace brantlow
