// A table view whose first column stays in sight: a second view of the same model lies over the first column
// and scrolls up and down with the rest. Columns are moved by dragging their headers, or by pressing in one
// column and releasing in another. The column pressed last is the current one; a double click on its header
// asks for sorting by it. Several rows are selected with Shift and Ctrl.
#pragma once

#include <QTableView>

namespace brantlow {

class FrozenTableView final : public QTableView {
    Q_OBJECT
  public:
    explicit FrozenTableView(QWidget* parent);

    void SetGridModel(QAbstractItemModel* model);
    // Width in pixels; 0 hides the column.
    void SetColumnWidth(int column, int pixels);
    // Puts a row (0 the first) at the top.
    void ShowAtTop(int row);
    // Makes a column the current one, the selection stays.
    void SetCurrentColumn(int column);
    // Marks the header of the column that the table is sorted by; -1 for none.
    void ShowSorted(int column, Qt::SortOrder order);
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    // What the cells in sight need, in pixels.
    int ContentWidth(int column) const;
    // The view over the first column, for tests of the mouse.
    QTableView* FrozenView() const { return frozen_; }

  Q_SIGNALS:
    void ColumnMoved(int from, int to);
    void ColumnResized(int column, int pixels);
    void SortAsked(int column);
    void CellDoubleClicked(int column);
    // Return was pressed on the current row.
    void RowEntered();
    // A header was pressed with the right button; `place` is on the screen.
    void HeaderMenuAsked(int column, const QPoint& place);

  protected:
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void SetUp(QTableView& view);
    void PlaceFrozenView();
    void HeaderMoved(int logical, int from, int to);
    void ConnectHeader(QTableView& view);
    void PressColumn(const QMouseEvent& event);
    void ReleaseColumn(const QMouseEvent& event);
    void Select(const QModelIndex& index, Qt::KeyboardModifiers modifiers);

    QTableView* frozen_;
    // The column pressed for a move, 0 for none.
    int DragColumn = 0;
    // Where a selection of several rows begins.
    int anchorRow_ = 0;
};

}  // namespace brantlow
