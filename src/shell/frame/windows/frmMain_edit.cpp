// What the main frame does to the tickers of the open table: adding, deleting, alarms, sorting.
#include "acquire/feeds/add_ticker.h"
#include "alerts/alarm_edit.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "store/windows/frmDeleteQuoteDataBase.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

void frmMain::AddSymbol() {
    if (!quoteForm_) return;
    const auto rowAdded = [this] {
        quoteForm_->TableChanged();
        person_.BeginWork();
    };
    const TableEdit edit = AddTicker(session_, web_, hosts_, quoteForm_->Table(), quoteForm_->Typed(),
                                     quoteForm_->CurrentColumn(), rowAdded);
    if (edit.outcome == EditOutcome::Unchanged) quoteForm_->ClearSymbolBox();
    if (edit.outcome != EditOutcome::Changed) return;
    if (!EndRun()) return;
    quoteForm_->ClearBoxes();
    TellEdit(edit);
}

void frmMain::DeleteSymbol() {
    frmQuoteGrid* const form = QuoteForm();
    if (!form || form->Table().TickerCount() == 1) return;
    const TableEdit edit =
        DeleteTicker(session_, form->Table(), form->Typed().symbol,
                     [this](const std::string& ticker) { return AsksToDeleteHistory(ticker); });
    if (edit.outcome == EditOutcome::Refused) return;
    form->TableChanged();
    form->ClearBoxes();
    TellEdit(edit);
}

bool frmMain::AsksToDeleteHistory(const std::string& ticker) {
    frmDeleteQuoteDataBase question(ticker, this);
    return question.exec() == QDialog::Accepted;
}

void frmMain::EditAlarm() {
    if (!quoteForm_) return;
    const NewTicker typed = quoteForm_->Typed();
    const TableEdit edit =
        EditAlarms(session_, quoteForm_->Table(), typed.symbol, {typed.highAlarm, typed.lowAlarm});
    if (edit.outcome == EditOutcome::Changed) quoteForm_->CellsChanged();
    TellEdit(edit);
}

void frmMain::TellEdit(const TableEdit& edit) {
    if (edit.saveError) {
        person_.Say(session_.CurrentFile + ": cannot be saved (" + edit.saveError.message() + ")");
    }
    if (edit.historyError) TellDatabaseError(edit.historyError);
}

void frmMain::TellDatabaseError(const std::error_code& error) {
    person_.Say(session_.settings.QuoteFolder + ": a file of the database cannot be written (" +
                error.message() + ")");
}

void frmMain::SortAscending() {
    if (quoteForm_) quoteForm_->Sort(SortOrder::Ascending);
}

void frmMain::SortDescending() {
    if (quoteForm_) quoteForm_->Sort(SortOrder::Descending);
}

}  // namespace brantlow
