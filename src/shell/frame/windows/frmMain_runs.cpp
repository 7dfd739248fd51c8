// The long runs of the main frame: what stands before and after the run itself.
#include <QTimer>

#include "acquire/feeds/history_download.h"
#include "acquire/feeds/windows/frmPopulate.h"
#include "selector/error_report.h"
#include "selector/selector_run.h"
#include "selector/windows/frmErrorReport.h"
#include "selector/windows/frmSelectorSelection.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/status_words.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// Line of DataSettings that says whether the selector runs by itself after an update.
constexpr std::size_t kRunSelectorLine = 16;
constexpr std::string_view kAutomatic = "Automatic";

}  // namespace

void frmMain::StockSelector() {
    if (!quoteForm_ || KindOf(session_.CurrentFile) != FileKind::Ddq) {
        person_.Say(kSelectorNeedsQuoteFile);
        return;
    }
    const std::error_code error = CreateEvaluationFile(quoteForm_->Table(), session_.DataFolder());
    if (error) {
        person_.Say(std::string(kEvaluationsName) + ": cannot be saved (" + error.message() + ")");
        return;
    }
    if (session_.settings.DataSettings.Text(kRunSelectorLine) == kAutomatic) {
        RunStockSelector(Interval::Daily);
    } else {
        AskInterval();
    }
}

void frmMain::AskInterval() {
    auto* selection = new frmSelectorSelection(this);
    connect(selection, &QDialog::finished, selection, &QObject::deleteLater);
    connect(selection, &frmSelectorSelection::Exited, this,
            [this] { person_.ShowStatusWord(kStatusComplete); });
    connect(selection, &frmSelectorSelection::Continued, this, &frmMain::RunStockSelector);
    selection->open();
}

void frmMain::RunStockSelector(Interval interval) {
    CheckActivefrm();
    session_.CurrentFile = kEvaluationsName;
    if (!ShowCurrentFile(session_, Windows())) return;
    BeginTableRun();
    SelectorOutcome outcome;
    RunSelector(session_, analysis_, interval, quoteForm_->Table(), outcome);
    if (EndTableRun()) TellOutcome(outcome);
}

// A run works on the open table: the row in work stays in sight.
void frmMain::BeginTableRun() {
    person_.BeginRun([this] { quoteForm_->ShowRowInWork(session_.run.CurrentRow, session_.run.TopRow); });
    ApplyRules();
}

// False when the frame was closed in the run and goes now.
bool frmMain::EndTableRun() {
    const bool stays = EndRun();
    quoteForm_->ShowFirstRow();
    return stays;
}

bool frmMain::EndRun() {
    person_.EndRun();
    // The run was called from a click; the frame goes when that has returned.
    if (exitAfterRun_) QTimer::singleShot(0, this, &QWidget::close);
    return !exitAfterRun_;
}

void frmMain::PopulateTickers() {
    auto* dialog = new frmPopulate(session_, this);
    connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    connect(dialog, &frmPopulate::PopulateAsked, this, &frmMain::RunPopulate);
    dialog->open();
}

void frmMain::RunPopulate() {
    if (!quoteForm_) return;
    BeginTableRun();
    const PopulateRun run = PopulateDatabase(session_, web_, hosts_, quoteForm_->Table());
    if (EndTableRun() && run.error) TellDatabaseError(run.error);
}

// The tickers are those of the report, whatever table is open: no row of it is in work.
void frmMain::RunRepopulate() {
    person_.BeginRun([] {});
    ApplyRules();
    const PopulateRun run = RepopulateReported(session_, web_, hosts_);
    if (EndRun() && run.error) TellDatabaseError(run.error);
}

void frmMain::TellOutcome(const SelectorOutcome& outcome) {
    if (outcome.reportError) {
        person_.Say(std::string(kErrorReportName) + ": cannot be saved (" + outcome.reportError.message() +
                    ")");
    } else if (!outcome.shortTickers.empty()) {
        auto* report = new frmErrorReport(session_.DataFolder() / Path(kErrorReportName), this);
        connect(report, &QDialog::finished, report, &QObject::deleteLater);
        connect(report, &frmErrorReport::RepopulateAsked, this, &frmMain::RunRepopulate);
        report->open();
    }
}

}  // namespace brantlow
