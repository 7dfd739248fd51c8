#include "shell/frame/windows/edit_commands.h"

#include <QMainWindow>

#include "acquire/feeds/add_ticker.h"
#include "alerts/alarm_edit.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "store/windows/frmDeleteQuoteDataBase.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

CommandRows EditCommands::Rows() {
    static constexpr SubjectRow<EditCommands> kRows[] = {
        {"CmdAdd", &EditCommands::AddSymbol},
        {"CmdDelete", &EditCommands::DeleteSymbol},
        {"CmdAlarm", &EditCommands::EditAlarm},
        {"SortAscending", &EditCommands::SortAscending},
        {"SortDescending", &EditCommands::SortDescending},
    };
    return RowsOf(*this, kRows);
}

void EditCommands::AddSymbol() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) return;
    const auto rowAdded = [this, form] {
        form->TableChanged();
        frame_.person.BeginWork();
    };
    const AddedTicker edit = AddTicker(frame_.session, frame_.web, frame_.hosts, form->Table(), form->Typed(),
                                       form->CurrentColumn(), TableSaving::AsSettingsSay, rowAdded);
    if (edit.outcome == EditOutcome::Unchanged) form->ClearSymbolBox();
    if (edit.outcome != EditOutcome::Changed) return;
    const bool stays = frame_.runs.End();
    TellAdded(edit);
    if (!stays) return;
    form->ClearBoxes();
    TellEdit(edit);
}

// Its row was added, whatever became of its history.
void EditCommands::TellAdded(const AddedTicker& added) {
    if (!added.history) return;
    RunReport report("Adding to " + frame_.session.CurrentFile, "histories");
    TellHistory(frame_.session.CurrentTicker, *added.history, report);
    report.MarkChanged();
    frame_.tell(report);
}

void EditCommands::DeleteSymbol() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || form->Table().TickerCount() == 1) return;
    const TableEdit edit =
        DeleteTicker(frame_.session, form->Table(), form->Typed().symbol,
                     [this](const std::string& ticker) { return AsksToDeleteHistory(ticker); });
    if (edit.outcome == EditOutcome::Refused) return;
    form->TableChanged();
    form->ClearBoxes();
    TellEdit(edit);
}

bool EditCommands::AsksToDeleteHistory(const std::string& ticker) {
    frmDeleteQuoteDataBase question(ticker, &frame_.window);
    return question.exec() == QDialog::Accepted;
}

void EditCommands::EditAlarm() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) return;
    const NewTicker typed = form->Typed();
    const TableEdit edit =
        EditAlarms(frame_.session, form->Table(), typed.symbol, {typed.highAlarm, typed.lowAlarm});
    if (edit.outcome == EditOutcome::Changed) {
        form->CellsChanged();
        frame_.rowChosen();
    }
    TellEdit(edit);
}

void EditCommands::TellEdit(const TableEdit& edit) {
    if (edit.fault) {
        frame_.person.Say(FaultSentence("The edit", edit.fault));
    } else if (edit.saveError) {
        frame_.person.Say(frame_.session.CurrentFile + ": cannot be saved (" + edit.saveError.message() +
                          ")");
    }
    if (edit.historyError) TellDatabaseError(frame_, edit.historyError);
}

void EditCommands::SortAscending() {
    Sort(SortOrder::Ascending);
}

void EditCommands::SortDescending() {
    Sort(SortOrder::Descending);
}

void EditCommands::Sort(SortOrder order) {
    if (frmQuoteGrid* const form = frame_.table.form()) form->Sort(order);
}

}  // namespace brantlow
