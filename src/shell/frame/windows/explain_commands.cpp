#include "shell/frame/windows/explain_commands.h"

#include <QItemSelectionModel>
#include <QMainWindow>

#include "base/windows/display_text.h"
#include "selector/evaluation.h"
#include "selector/windows/explain_pane.h"
#include "shell/frame/windows/window_person.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"

namespace brantlow {

namespace {

constexpr std::string_view kNeedsVerdicts =
    "To explain a verdict, you will need to open a Stock Selector File and select one of its cells";

}  // namespace

CommandRows ExplainCommands::Rows() {
    static constexpr SubjectRow<ExplainCommands> kRows[] = {{"mnuViewExplain", &ExplainCommands::Explain}};
    return RowsOf(*this, kRows);
}

void ExplainCommands::MakePane() {
    if (pane_) return;
    pane_ = new ExplainPane(&frame_.window);
    frame_.window.addDockWidget(Qt::RightDockWidgetArea, pane_);
    QObject::connect(pane_, &ExplainPane::IntervalChosen, &frame_.window, [this] { ShowCell(); });
    QObject::connect(pane_, &ExplainPane::ChartAsked, &frame_.window,
                     [this] { frame_.run("mnuGraphicsHLC"); });
}

void ExplainCommands::Explain() {
    if (KindOf(frame_.session.CurrentFile) != FileKind::Dbe) return frame_.person.Say(kNeedsVerdicts);
    MakePane();
    pane_->show();
    Follow();
    ShowCell();
}

// The pane stays with the table that is open; one that comes later is followed when it is explained.
void ExplainCommands::Follow() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || followed_ == form) return;
    followed_ = form;
    QObject::connect(form->View()->selectionModel(), &QItemSelectionModel::currentChanged, pane_,
                     [this] { ShowCell(); });
    QObject::connect(form, &QObject::destroyed, pane_, &QWidget::hide);
}

void ExplainCommands::ShowCell() {
    const frmQuoteGrid* const form = frame_.table.form();
    const QWidget* const pane = pane_;
    if (!pane || !pane->isVisible() || !form || frame_.person.InRun()) return;
    const QModelIndex cell = form->View()->currentIndex();
    if (!cell.isValid()) return pane_->ShowSentence(QStringLiteral("Select a cell of a condition."));
    const std::string ticker = form->Table().Ticker(static_cast<std::size_t>(cell.row()) + 1);
    if (!analysis_) analysis_ = std::make_unique<Analysis>();
    const Failure failure =
        AnalyseTicker(HistoryOf(frame_.session), ticker, pane_->ChosenInterval(), *analysis_);
    if (failure) return pane_->ShowSentence(Shown(Sentence(failure)));
    if (!HasBarsToEvaluate(analysis_->series))
        return pane_->ShowSentence(Shown(ticker) + QStringLiteral(": 15 bars or fewer are not judged"));
    pane_->Show(ticker, static_cast<std::size_t>(cell.column()), CompiledConditions(frame_.session.settings),
                *analysis_);
}

}  // namespace brantlow
