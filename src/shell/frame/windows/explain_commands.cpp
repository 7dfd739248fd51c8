#include "shell/frame/windows/explain_commands.h"

#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QMainWindow>
#include <QToolTip>

#include "base/windows/display_text.h"
#include "selector/selector_run.h"
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
    QObject::connect(pane_, &ExplainPane::IntervalChosen, this, [this] { ShowCell(); });
    QObject::connect(pane_, &ExplainPane::ChartAsked, this, [this] { OpenChart(); });
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
    FrozenTableView* const view = form->View();
    QObject::connect(view->selectionModel(), &QItemSelectionModel::currentChanged, pane_,
                     [this] { ShowCell(); });
    QObject::connect(form, &QObject::destroyed, pane_, &QWidget::hide);
    ShowOrigin();
}

void ExplainCommands::TableShown() {
    frmQuoteGrid* const form = frame_.table.form();
    if (form && KindOf(frame_.session.CurrentFile) == FileKind::Dbe)
        form->View()->viewport()->installEventFilter(this);
}

void ExplainCommands::ShowOrigin() {
    const frmQuoteGrid* const form = followed_;
    if (!form) return;
    const std::optional<TableOrigin>& origin = form->Table().Origin();
    if (!origin) return pane_->ShowOrigin(std::nullopt, std::nullopt);
    pane_->ShowOrigin(IntervalOf(origin->interval), origin->day);
}

// The table's own where it tells them, else those that are chosen in the pane.
Interval ExplainCommands::Bars() const {
    const frmQuoteGrid* const form = frame_.table.form();
    const std::optional<Interval> told =
        form && form->Table().Origin() ? IntervalOf(form->Table().Origin()->interval) : std::nullopt;
    if (told) return *told;
    return pane_ ? pane_->ChosenInterval() : Interval::Daily;
}

std::optional<Date> ExplainCommands::LastDay() const {
    const frmQuoteGrid* const form = frame_.table.form();
    if (!form || !form->Table().Origin()) return std::nullopt;
    return form->Table().Origin()->day;
}

std::optional<ExplainCommands::Verdict> ExplainCommands::VerdictAt(const QModelIndex& cell,
                                                                   std::string& sentence) {
    const CompiledConditions conditions(frame_.session.settings);
    const auto condition = static_cast<std::size_t>(std::max(0, cell.column()));
    if (!cell.isValid() || condition == 0 || condition > conditions.BlockCount()) {
        sentence = "Select a cell of a condition to see why it is as it is.";
        return std::nullopt;
    }
    const QuoteTable& table = frame_.table.form()->Table();
    const std::size_t row = frame_.table.form()->RowAt(cell);
    const std::string ticker = table.Ticker(row);
    if (!analysis_) analysis_ = std::make_unique<Analysis>();
    HistorySource source = HistoryOf(frame_.session);
    source.lastDay = LastDay();
    if (const Failure failure = AnalyseTicker(source, ticker, Bars(), *analysis_)) {
        sentence = Sentence(failure);
        return std::nullopt;
    }
    if (!HasBarsToEvaluate(analysis_->series)) {
        sentence = ticker + ": 15 bars or fewer are not judged";
        return std::nullopt;
    }
    const ConditionBlock& block = conditions.Block(condition);
    return Verdict{ticker, condition, table.Text(row, condition), block, ExplainCondition(block, *analysis_)};
}

bool ExplainCommands::PaneShows() const {
    const QWidget* const pane = pane_;
    return pane && pane->isVisible();
}

void ExplainCommands::ShowCell() {
    const frmQuoteGrid* const form = frame_.table.form();
    if (!PaneShows() || !form || frame_.person.InRun()) return;
    std::string sentence;
    const std::optional<Verdict> verdict = VerdictAt(form->View()->currentIndex(), sentence);
    if (!verdict) return pane_->ShowSentence(Shown(sentence));
    pane_->Show(verdict->ticker, verdict->condition, verdict->block, verdict->explanation, *analysis_,
                verdict->text);
}

// Of a cell without anything to explain, the chart of its ticker all the same.
void ExplainCommands::OpenChart() {
    const frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.person.InRun()) return;
    ChartWish wish;
    wish.ticker = form->SelectedTicker();
    wish.interval = pane_->ChosenInterval();
    wish.day = LastDay();
    std::string sentence;
    if (const std::optional<Verdict> verdict = VerdictAt(form->View()->currentIndex(), sentence))
        wish.series = SeriesOf(verdict->explanation);
    frame_.openChart(wish);
}

bool ExplainCommands::eventFilter(QObject* watched, QEvent* event) {
    const frmQuoteGrid* const form = frame_.table.form();
    if (event->type() != QEvent::ToolTip || !form || frame_.person.InRun()) return false;
    const FrozenTableView& view = *form->View();
    if (watched != view.viewport()) return false;
    const auto* const help = static_cast<QHelpEvent*>(event);
    return ShowTip(view.indexAt(help->pos()), help->globalPos());
}

// While the pane is closed a hit is told of that has no test behind it, where the table tells its bars.
bool ExplainCommands::ShowTip(const QModelIndex& cell, const QPoint& onScreen) {
    const QuoteTable& table = frame_.table.form()->Table();
    const bool isExplained = PaneShows() && followed_ == frame_.table.form();
    if (!isExplained && (!table.Origin() || cell.data().toString().isEmpty())) return false;
    std::string sentence;
    const std::optional<Verdict> verdict = VerdictAt(cell, sentence);
    if (!verdict || (!isExplained && !IsUntestedHit(verdict->explanation))) return false;
    QToolTip::showText(onScreen, Shown(verdict->ticker + ": " +
                                       ShortExplanation(verdict->block, verdict->explanation, *analysis_)));
    return true;
}

}  // namespace brantlow
