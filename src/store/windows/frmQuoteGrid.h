// The window of a table file: the quote table itself, with its ticker column and header fixed, and above it
// the Symbol box that finds a ticker as it is typed and the buttons. It owns the table that it shows; runs
// fill that table and tell the window which row they are at.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "shell/open_states.h"
#include "shell/session.h"
#include "store/quote_table.h"
#include "store/row_filter.h"
#include "store/table_edit.h"
#include "store/table_files.h"
#include "store/table_sort.h"

class QAbstractItemView;
class QLabel;
class QLineEdit;
class QModelIndex;

namespace brantlow {

class FrozenTableView;
struct RowCounts;
class QuoteGridModel;
class QuoteStrip;

class frmQuoteGrid final : public QWidget {
    Q_OBJECT
  public:
    explicit frmQuoteGrid(Session& session);

    // Reads Session::CurrentFile, with progress, and shows what was read.
    TableLoad Load();
    // Reads it again: columns, filter and what is selected stay, a ticker that has come back is selected.
    // What is shown stays as it is where the file cannot be read.
    TableLoad Reload();

    QuoteTable& Table() { return table_; }
    const QuoteTable& Table() const { return table_; }
    FrozenTableView* View() const { return view_; }

    // A run is at `row` (1 the first): shows what it wrote since the last call, with `topRow` on top, or,
    // where that is 0, with this row in sight.
    void ShowRowInWork(std::size_t row, std::size_t topRow = 0);
    // The run is over: the table's first row is on top again.
    void ShowFirstRow();
    // The user's columns are others than before: shows them, in their order.
    void RebuildColumns();
    // The table's rows are others than before. The selected ticker stays selected where it is still there.
    void TableChanged();
    // Cells of the table have changed, its rows have not.
    void CellsChanged();
    // The table's row (1 the first) of a cell of the view.
    std::size_t RowAt(const QModelIndex& cell) const;
    // Selects the row of this ticker and brings it into sight; a filter that hides it is taken away.
    void SelectTicker(const std::string& ticker);
    // The selected rows of the table, rising.
    std::vector<std::size_t> SelectedRows() const;
    void SelectAllRows();
    // The selected rows with their header, their cells between tabs, to be pasted elsewhere.
    void CopyRows();
    // The filter can be typed.
    void FindRows();
    // The rows that the filter shows, in the table's order.
    std::vector<std::size_t> ShownRows() const;
    // How many rows there are, and the sum of the current column; what is wrong with the filter instead.
    std::string RowsLine() const;
    // Sorts by a column, ascending and descending by turns.
    void SortByTurns(int column);
    // Sorts by the current column, that of the cell or header pressed last.
    void Sort(SortOrder order);
    std::size_t CurrentColumn() const;
    // The ticker of the selected row; empty where none is selected.
    const std::string& SelectedTicker() const { return selectedTicker_; }
    // The ticker that commands mean: that of the row selected last, or what is typed in the Symbol box in
    // capitals. A run that goes through the tickers does not change it.
    const std::string& TickerMeant() const { return tickerMeant_; }
    // What stands in the boxes above the table.
    NewTicker Typed() const;
    void ClearSymbolBox();
    // Empties the Symbol box and both alarm boxes; the next ticker can be typed.
    void ClearBoxes();
    // Shows the buttons of the open table's kind.
    void ApplyRules(OpenStates state, bool enabled);
    // The open file goes by another name.
    void NameChanged();

  Q_SIGNALS:
    // The user asked to close this window; the main frame decides.
    void CloseAsked();
    // A button above the table was pressed; `command` names the main frame's routine behind it.
    void CommandPressed(std::string_view command);
    // A row was clicked with the right button, or the menu key pressed; `place` is on the screen. The row is
    // selected by then.
    void PopUpAsked(const QPoint& place);
    // Another row was selected, or one found by typing.
    void RowChosen();
    // RowsLine says something else.
    void RowsLineChanged();
    void CellDoubleClicked(int column);
    // Return was pressed on the selected row.
    void RowEntered();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    TableLoad Read(QuoteTable& table) const;
    void ReloadModel();
    void ShowTable();
    void ShowEmptySentence();
    void ApplyWidths();
    int ShownWidth(std::size_t column, std::size_t longest) const;
    int NumberWidth(std::size_t column, std::size_t longest) const;
    void ConnectBoxes();
    void ConnectView();
    void MoveColumn(int from, int to);
    void SortBy(int column, SortOrder order);
    void SelectAgain(int column);
    void SelectAlso(const std::vector<std::string>& tickers);
    void ConnectFilter();
    void ApplyFilter();
    void ShowFilteredRows();
    void ShowAlarmsOf(std::size_t row);
    void ForgetShownAlarms();
    void ShowColumnMenu(int column, const QPoint& place);
    void ToggleColumn(std::size_t column);
    bool ShowsChosenColumns() const;
    void KeepChosenColumns();
    void FitColumn(std::size_t column);
    void ShowTableRowAtTop(std::size_t row);
    std::string LineOf(const RowCounts& counts, const std::vector<std::size_t>& selected) const;
    void RowSelected(int row);
    void Mean(const std::string& ticker);
    void EnterTicker(const QLineEdit& box);
    void AskPopUp(const QAbstractItemView& view, const QPoint& place);
    void Text1_Change(const QString& text);
    QString EmptySentence() const;
    bool HasSavedKind() const;

    Session& session_;
    QuoteTable table_;
    QuoteGridModel* model_;
    FrozenTableView* view_;
    QuoteStrip* strip_;
    QLineEdit* Text1;
    QLabel* empty_;
    std::size_t SelectedRow = 0;
    std::string selectedTicker_;
    std::string tickerMeant_;
    RowFilter filter_;
    // What the alarm boxes show of a row; what was typed over it stays.
    std::string shownHigh_;
    std::string shownLow_;
    // False while a run stands still over the table: its rows and columns keep their places.
    bool enabled_ = true;
    // Which way the next double click sorts.
    SortOrder nextOrder_ = SortOrder::Ascending;
};

}  // namespace brantlow
