#include "shell/frame/windows/run_commands.h"

#include <QMainWindow>
#include <QStatusBar>
#include <memory>

#include "acquire/feeds/archives/history_import.h"
#include "acquire/feeds/history_download.h"
#include "acquire/feeds/windows/frmImportHistory.h"
#include "acquire/feeds/windows/frmPopulate.h"
#include "base/windows/display_text.h"
#include "selector/selector_run.h"
#include "selector/windows/frmSelectorSelection.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/run_report.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "shell/status_words.h"
#include "splits/split_adjustment.h"
#include "splits/windows/frmSplitFactor.h"
#include "store/error_report.h"
#include "store/file_names.h"
#include "store/table_files.h"
#include "store/windows/frmErrorReport.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr int kResultMilliseconds = 10000;

QString ResultSentence(const std::string& ticker, const SplitAdjustment& adjustment) {
    if (adjustment.SplitIndex == 0)
        return Shown(ticker) + QStringLiteral(": no jump of the prices fits, nothing changed");
    const QString sentence =
        Shown(ticker) + QStringLiteral(": %1 days before the split are restated").arg(adjustment.SplitIndex);
    const std::string halfLines = HalfLineWords(adjustment.halfLines);
    return halfLines.empty() ? sentence : sentence + QStringLiteral("; ") + Shown(halfLines);
}

}  // namespace

CommandRows RunCommands::Rows() {
    static constexpr SubjectRow<RunCommands> kRows[] = {
        {"mnuFilePopulate", &RunCommands::PopulateTickers},
        {"mnuFileImportHistory", &RunCommands::AskImport},
        {"mnuEvaluatePickStocks", &RunCommands::StockSelector},
        {"mnuEditSplitAdjustment", &RunCommands::AdjustSplit},
        {"mnuPopUpSplitAdjustmentMakeAdjustment", &RunCommands::AdjustSplit},
    };
    return RowsOf(*this, kRows);
}

void RunCommands::StockSelector() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kSelectorNeedsQuoteFile);
        return;
    }
    if (const Failure fault = CreateEvaluationFile(form->Table(), frame_.session)) {
        frame_.person.Say(ChangeSentence(kSelectorChange, fault));
        return;
    }
    if (RunsSelector(frame_.session.settings)) {
        RunStockSelector(Interval::Daily, std::nullopt);
    } else {
        AskInterval();
    }
}

void RunCommands::AskInterval() {
    auto* selection = new frmSelectorSelection(frame_.session.clock.Today(), &frame_.window);
    QObject::connect(selection, &QDialog::finished, selection, &QObject::deleteLater);
    QObject::connect(selection, &frmSelectorSelection::Exited, &frame_.window,
                     [this] { frame_.person.ShowStatusWord(kStatusComplete); });
    QObject::connect(
        selection, &frmSelectorSelection::Continued, &frame_.window,
        [this, selection](Interval interval) { RunStockSelector(interval, selection->LastDay()); });
    selection->open();
}

void RunCommands::RunStockSelector(Interval interval, std::optional<Date> lastDay) {
    const TableOrigin origin = OriginOfRun(frame_.session, interval, frame_.session.CurrentFile, lastDay);
    if (!frame_.table.show(kEvaluationsName)) return;
    frmQuoteGrid& form = *frame_.table.form();
    form.Table().SetOrigin(origin);
    form.NameChanged();
    frame_.runs.Begin(form);
    SelectorOutcome outcome;
    RunSelector(frame_.session, analysis_, interval, form.Table(), outcome, lastDay);
    const bool stays = frame_.runs.EndOn(form);
    // The line of the update that it follows by itself says more.
    if (outcome.stopped || !RunsSelector(frame_.session.settings))
        frame_.tell(ReportOf(outcome, origin.source, form.Table().TickerCount()));
    if (stays) TellOutcome(outcome);
}

void RunCommands::PopulateTickers() {
    auto* dialog = new frmPopulate(frame_.session, &frame_.window);
    if (const frmQuoteGrid* const form = frame_.table.form()) {
        dialog->ShowSource(form->Table().TickerCount(), frame_.web);
    }
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    QObject::connect(dialog, &frmPopulate::PopulateAsked, &frame_.window, [this] {
        RunReport report;
        Populate(report);
    });
    dialog->open();
}

bool RunCommands::MayReplace(const std::vector<std::string>& tickers, std::string_view verb) {
    const std::size_t stored = TickersWithHistory(frame_.session, tickers);
    if (stored <= 1) return true;
    return frame_.person.AskBeforeLoss(ReplaceQuestion(stored, tickers.size()), kReplaceTitle, verb);
}

Filling RunCommands::Populate(RunReport& report) {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) return Filling::Ended;
    if (!MayReplace(TickersOf(form->Table()), "Populate")) return Filling::Kept;
    frame_.runs.Begin(*form);
    const PopulateRun run = PopulateDatabase(frame_.session, frame_.web, frame_.hosts, form->Table());
    const bool stays = frame_.runs.EndOn(*form);
    report = run.report;
    frame_.tell(report);
    if (stays && run.error) frame_.person.Say(ChangeSentence("Populate", run.error));
    return stays && !run.stopped ? Filling::Done : Filling::Ended;
}

void RunCommands::AskImport() {
    std::vector<std::string> tickers;
    if (const frmQuoteGrid* const form = frame_.table.form()) tickers = TickersOf(form->Table());
    auto* dialog = new frmImportHistory(frame_.session, std::move(tickers), &frame_.window);
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    QObject::connect(
        dialog, &frmImportHistory::ImportAsked, &frame_.window,
        [this](const HistoryImportChoice& choice, const ImportOutlook& outlook) { Import(choice, outlook); });
    dialog->open();
}

void RunCommands::Import(const HistoryImportChoice& choice, const ImportOutlook& outlook) {
    const bool goesOn =
        outlook.stored <= 1 || frame_.person.AskBeforeLoss(ReplaceQuestion(outlook.stored, outlook.histories),
                                                           kReplaceTitle, "Import");
    if (!goesOn) return;
    frame_.runs.BeginWithoutTable();
    const HistoryImport import = ImportHistories(frame_.session, choice);
    const bool stays = frame_.runs.End();
    frame_.person.HideProgress();
    frame_.tell(import.report);
    if (stays && import.fault) frame_.person.Say(import.report.Line());
}

// The tickers are those of the report, whatever table is open: no row of it is in work.
void RunCommands::RunRepopulate() {
    if (RefusedBySettings(frame_, kDownloadSettings)) return;
    const std::optional<ErrorReport> report = ReadErrorReport(frame_.session.DataFolder());
    if (report && !MayReplace(report->tickers, "Re-populate")) return;
    frame_.runs.BeginWithoutTable();
    const PopulateRun run = RepopulateReported(frame_.session, frame_.web, frame_.hosts);
    const bool stays = frame_.runs.End();
    frame_.tell(run.report);
    if (stays && run.error) frame_.person.Say(ChangeSentence("Populate", run.error));
}

void RunCommands::TellOutcome(const SelectorOutcome& outcome) {
    if (outcome.reportError) {
        frame_.person.Say(Sentence(outcome.reportError));
    } else if (!outcome.unreadable.empty()) {
        frame_.person.Say(std::to_string(outcome.unreadable.size()) + " of " +
                          CountedTickers(outcome.tickers) +
                          " left out: " + Sentence(outcome.unreadable.front()));
    } else if (outcome.looksBack) {
        if (!outcome.shortTickers.empty())
            frame_.notice(CountedTickers(outcome.shortTickers.size()) +
                          " had too little history on that day");
    } else if (!outcome.shortTickers.empty()) {
        auto* report =
            new frmErrorReport(frame_.session.DataFolder() / Path(kErrorReportName), &frame_.window);
        QObject::connect(report, &QDialog::finished, report, &QObject::deleteLater);
        QObject::connect(report, &frmErrorReport::RepopulateAsked, &frame_.window,
                         [this] { RunRepopulate(); });
        // It opens by itself: it stands beside the work and holds up no daily run.
        report->show();
    }
}

void RunCommands::AdjustSplit() {
    const frmQuoteGrid* const form = frame_.table.form();
    if (!form || form->SelectedTicker().empty()) return;
    auto* dialog = new frmSplitFactor(form->SelectedTicker(), &frame_.window);
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    QObject::connect(
        dialog, &QDialog::accepted, &frame_.window,
        [this, dialog, ticker = form->SelectedTicker()] { RestateHistory(ticker, dialog->SplitFactor()); });
    dialog->open();
}

// A series of its own, so that an open chart keeps the one that it draws. A factor that does not show in the
// prices changes nothing, which the status bar tells.
void RunCommands::RestateHistory(const std::string& ticker, double SplitFactor) {
    if (frame_.person.InRun()) return;
    frame_.person.ShowStatusWord(kStatusUpdating);
    const auto series = std::make_unique<WorkingSeries>();
    const HistorySource source{frame_.session.settings.QuoteFolder, frame_.session.clock};
    SplitAdjustment adjustment;
    const ChangePlace place = ChangePlaceOf(frame_.session);
    frame_.person.BeginWork();
    frame_.person.DoBeside([&] { adjustment = AdjustForSplit(source, place, ticker, SplitFactor, *series); });
    frame_.runs.End();
    frame_.person.ShowStatusWord(kStatusComplete);
    if (adjustment.error) {
        frame_.person.Say(ChangeSentence("Split of " + ticker, adjustment.error));
    } else {
        frame_.window.statusBar()->showMessage(ResultSentence(ticker, adjustment), kResultMilliseconds);
    }
}

}  // namespace brantlow
