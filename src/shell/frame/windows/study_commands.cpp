#include "shell/frame/windows/study_commands.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"
#include "study/windows/frmStudy.h"

namespace brantlow {

namespace {

constexpr std::string_view kStudyNeedsQuoteFile =
    "To study the conditions, you will need to open an End of Day Quote File";

// A study of so few stands on the screen within a second: it need not be asked for.
constexpr std::size_t kFewTickers = 100;

}  // namespace

CommandRows StudyCommands::Rows() {
    static constexpr SubjectRow<StudyCommands> kRows[] = {{"mnuEvaluateStudy", &StudyCommands::ShowStudy}};
    return RowsOf(*this, kRows);
}

void StudyCommands::ShowStudy() {
    const frmQuoteGrid* const table = frame_.table.form();
    if (!table || KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kStudyNeedsQuoteFile);
        return;
    }
    CloseForm();
    const std::size_t tickers = table->Table().TickerCount();
    auto* form = new frmStudy(frame_.session, frame_.session.CurrentFile, table->Table().Tickers());
    form_ = form;
    window_ = frame_.children.Add(*form);
    QObject::connect(form, &frmStudy::RunAsked, &frame_.window, [this] { RunLong(&frmStudy::Run); });
    QObject::connect(form, &frmStudy::ReplayAsked, &frame_.window, [this] { RunLong(&frmStudy::RunReplay); });
    QObject::connect(form, &frmStudy::ChartAsked, &frame_.window,
                     [this](const std::string& ticker, const Date& day) {
                         frame_.openChart({.ticker = ticker, .day = day});
                     });
    QObject::connect(form, &frmStudy::CloseAsked, &frame_.window, [this] {
        if (!frame_.person.InRun()) CloseForm();
    });
    ChildOperations operations;
    operations.active = kChartActive;
    operations.print = [form] { form->AskPrint(); };
    operations.save = operations.saveAs = [form] { form->SaveReport(); };
    operations.close = [this] { CloseForm(); };
    frame_.children.SetOperations(*form, operations);
    window_->showMaximized();
    form->setFocus();
    frame_.applyRules();
    // Once it stands in front: the frame is disabled by the run, and would put the table back there.
    if (tickers <= kFewTickers) QTimer::singleShot(0, form, [this] { RunLong(&frmStudy::Run); });
}

// The window stays while its run goes on: closing it is refused until then.
void StudyCommands::RunLong(void (frmStudy::*run)()) {
    if (frame_.person.InRun() || !form_) return;
    frame_.runs.BeginWithoutTable();
    (form_.data()->*run)();
    const bool stays = frame_.runs.End();
    if (!stays || !window_) return;
    // The run's buttons had the focus, and the frame would give it back to the table.
    window_->mdiArea()->setActiveSubWindow(window_);
    form_->setFocus();
}

void StudyCommands::CloseForm() {
    frame_.children.Remove(window_);
    window_ = nullptr;
    form_ = nullptr;
    frame_.applyRules();
}

}  // namespace brantlow
