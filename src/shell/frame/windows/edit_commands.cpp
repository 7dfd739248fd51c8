#include "shell/frame/windows/edit_commands.h"

#include <QMainWindow>

#include "acquire/feeds/add_ticker.h"
#include "alerts/alarm_edit.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/settings/choices.h"
#include "store/table_colours.h"
#include "store/table_files.h"
#include "store/windows/frmDeleteQuoteDataBase.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

CommandRows EditCommands::Rows() {
    static constexpr SubjectRow<EditCommands> kRows[] = {
        {"CmdAdd", &EditCommands::AddSymbol},
        {"CmdDelete", &EditCommands::DeleteSymbol},
        {"CmdAlarm", &EditCommands::EditAlarm},
        {"mnuEditCopy", &EditCommands::CopyRows},
        {"mnuEditSelectAll", &EditCommands::SelectAllRows},
        {"mnuEditFind", &EditCommands::FindRows},
        {"SortAscending", &EditCommands::SortAscending},
        {"SortDescending", &EditCommands::SortDescending},
    };
    return RowsOf(*this, kRows);
}

void EditCommands::AddSymbol() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || RefusesAlarms(form->Typed())) return;
    const auto rowAdded = [this, form] {
        form->TableChanged();
        frame_.person.BeginWork();
    };
    const AddedTicker edit = AddTicker(frame_.session, frame_.web, frame_.hosts, form->Table(), form->Typed(),
                                       form->CurrentColumn(), TableSaving::AsSettingsSay, rowAdded);
    if (edit.outcome == EditOutcome::Unchanged) form->ClearSymbolBox();
    if (edit.outcome != EditOutcome::Changed) return;
    // Told before the work ends: a frame that was closed meanwhile goes then.
    TellEdit(edit);
    const bool stays = frame_.runs.End();
    TellAdded(edit);
    if (!stays) return;
    const std::string ticker = frame_.session.CurrentTicker;
    form->ClearBoxes();
    form->SelectTicker(ticker);
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
    RemovedRow removed;
    bool isWork = false;
    const auto ask = [&](const std::string& ticker) {
        removed = KeepRow(form->Table(), RowOfTicker(form->Table(), ticker));
        return frmDeleteQuoteDataBase(ticker, &frame_.window).Ask();
    };
    const auto rowTaken = [&] {
        form->TableChanged();
        isWork = frame_.runs.BeginSaving(form->Table());
    };
    const TableEdit edit = DeleteTicker(frame_.session, form->Table(), form->Typed().symbol, ask, rowTaken);
    if (edit.outcome == EditOutcome::Refused) return;
    // One that was saved comes back with its file.
    removed_ = SavesTable(frame_.session.settings) ? RemovedRow() : removed;
    removedFrom_ = frame_.session.CurrentFile;
    // Told before the work ends: a frame that was closed meanwhile goes then.
    TellEdit(edit);
    if (isWork) frame_.runs.End();
    form->ClearBoxes();
}

std::string EditCommands::RowToRestore() const {
    const frmQuoteGrid* const form = frame_.table.form();
    const bool isOpen = form && frame_.session.CurrentFile == removedFrom_ && !removed_.cells.empty();
    return isOpen ? removed_.cells.front().second : std::string();
}

void EditCommands::RestoreDeletedRow() {
    frmQuoteGrid* const form = frame_.table.form();
    const std::string ticker = RowToRestore();
    if (ticker.empty()) return;
    if (RestoreRow(form->Table(), removed_)) {
        ColorQuoteRow(form->Table(), removed_.row, frame_.session.clock.Today());
        form->TableChanged();
        form->SelectTicker(ticker);
        frame_.person.ShowTickerCount(form->Table().TickerCount());
    }
    removed_ = RemovedRow();
}

// Of a table that has alarms, once a ticker is named.
bool EditCommands::RefusesAlarms(const NewTicker& typed) {
    if (KindOf(frame_.session.CurrentFile) != FileKind::Ddq || typed.symbol.empty()) return false;
    const std::string refusal = RefusedAlarms(typed.highAlarm, typed.lowAlarm);
    if (!refusal.empty()) frame_.person.Say(refusal);
    return !refusal.empty();
}

void EditCommands::CopyRows() {
    if (frmQuoteGrid* const form = frame_.table.form()) form->CopyRows();
}

void EditCommands::SelectAllRows() {
    if (frmQuoteGrid* const form = frame_.table.form()) form->SelectAllRows();
}

void EditCommands::FindRows() {
    if (frmQuoteGrid* const form = frame_.table.form()) form->FindRows();
}

void EditCommands::EditAlarm() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) return;
    const NewTicker typed = form->Typed();
    if (RefusesAlarms(typed)) return;
    TableEdit edit;
    frame_.runs.Saving(form->Table(), [&] {
        edit = EditAlarms(frame_.session, form->Table(), typed.symbol, {typed.highAlarm, typed.lowAlarm});
    });
    if (edit.outcome == EditOutcome::Changed) {
        form->CellsChanged();
        frame_.rowChosen();
    }
    TellEdit(edit);
}

void EditCommands::TellEdit(const TableEdit& edit) {
    // The person's own No is no failure of the edit.
    if (edit.fault && edit.saveError != std::errc::operation_canceled) {
        frame_.person.Say(ChangeSentence("The edit", edit.fault));
    } else if (edit.saveError) {
        frame_.person.Say(CannotBeSaved(frame_.session.CurrentFile, edit.saveError));
    }
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
