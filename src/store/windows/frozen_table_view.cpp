#include "store/windows/frozen_table_view.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "base/windows/colours.h"

namespace brantlow {

namespace {

constexpr int kRowPadding = 7;

// A cell with a ground of its own keeps it when its row is selected: the colour is what the cell says.
class CellDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // A text that ends with dots is read whole in a tool tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const QString text = index.data().toString();
        const bool isCut =
            event->type() == QEvent::ToolTip && sizeHint(option, index).width() > option.rect.width();
        if (!isCut || !index.data(Qt::ToolTipRole).isNull())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), text, view, option.rect);
        return true;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;
        // A run disables the frame; its results are meant to be read all the same.
        option->state |= QStyle::State_Enabled;
        if (option->backgroundBrush.style() != Qt::NoBrush) option->state &= ~QStyle::State_Selected;
    }
};

int RowHeight(const QWidget& widget) {
    return widget.fontMetrics().height() + kRowPadding;
}

}  // namespace

FrozenTableView::FrozenTableView(QWidget* parent) : QTableView(parent), frozen_(new QTableView(this)) {
    setObjectName(QStringLiteral("MSHFlexGrid1"));
    setAccessibleName(QStringLiteral("Tickers and their quotes"));
    SetUp(*this);
    setFrameShape(QFrame::NoFrame);
    frozen_->setObjectName(QStringLiteral("FrozenColumn"));
    SetUp(*frozen_);
    frozen_->setFrameShape(QFrame::NoFrame);
    frozen_->setFocusPolicy(Qt::NoFocus);
    frozen_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ConnectHeader(*this);
    ConnectHeader(*frozen_);
    frozen_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setFirstSectionMovable(false);
    viewport()->stackUnder(frozen_);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, frozen_->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(frozen_->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
            &QScrollBar::setValue);
    // Queued: the header is still in its own mouse handling when it tells of a move.
    connect(horizontalHeader(), &QHeaderView::sectionMoved, this, &FrozenTableView::HeaderMoved,
            Qt::QueuedConnection);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int pixels) {
        if (column == 0) PlaceFrozenView();
        Q_EMIT ColumnResized(column, pixels);
    });
}

void FrozenTableView::SetUp(QTableView& view) {
    view.setItemDelegate(new CellDelegate(&view));
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setAlternatingRowColors(true);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setWordWrap(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setMinimumSectionSize(1);
    view.verticalHeader()->setDefaultSectionSize(RowHeight(view));
    view.horizontalHeader()->setMinimumSectionSize(1);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setSectionsClickable(true);
    view.setCornerButtonEnabled(false);
    KeepColoursWhenDisabled(view);
}

void FrozenTableView::ConnectHeader(QTableView& view) {
    QHeaderView* const header = view.horizontalHeader();
    connect(header, &QHeaderView::sectionPressed, this, &FrozenTableView::SetCurrentColumn);
    connect(header, &QHeaderView::sectionDoubleClicked, this, &FrozenTableView::SortAsked);
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT CellDoubleClicked(index.column()); });
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, [this, header](const QPoint& place) {
        const int column = header->logicalIndexAt(place);
        if (column >= 0) Q_EMIT HeaderMenuAsked(column, header->mapToGlobal(place));
    });
}

void FrozenTableView::SetGridModel(QAbstractItemModel* model) {
    setModel(model);
    frozen_->setModel(model);
    frozen_->setSelectionModel(selectionModel());
    PlaceFrozenView();
}

void FrozenTableView::SetColumnWidth(int column, int pixels) {
    const QSignalBlocker quiet(horizontalHeader());
    setColumnHidden(column, pixels == 0);
    if (pixels > 0) setColumnWidth(column, pixels);
    frozen_->setColumnHidden(column, column != 0);
    if (column == 0) PlaceFrozenView();
}

// Without a current row it is the first in sight, so that nothing scrolls.
void FrozenTableView::SetCurrentColumn(int column) {
    if (!model() || model()->rowCount() == 0) return;
    const int row = currentIndex().isValid() ? currentIndex().row() : std::max(0, rowAt(0));
    selectionModel()->setCurrentIndex(model()->index(row, column), QItemSelectionModel::NoUpdate);
}

void FrozenTableView::ShowSorted(int column, Qt::SortOrder order) {
    for (QHeaderView* header : {horizontalHeader(), frozen_->horizontalHeader()}) {
        header->setSortIndicatorShown(column >= 0);
        header->setSortIndicator(column, order);
    }
}

void FrozenTableView::ShowAtTop(int row) {
    verticalScrollBar()->setValue(row);
}

// By the letters alone: the delegate, which lays each text out, takes ten times as long.
int FrozenTableView::ContentWidth(int column) const {
    const int first = std::max(0, rowAt(0));
    const int below = rowAt(viewport()->height() - 1);
    const int last = below < 0 ? model()->rowCount() - 1 : below;
    int widest = 0;
    for (int row = first; row <= last; ++row) {
        const QModelIndex cell = model()->index(row, column);
        const QVariant bold = cell.data(Qt::FontRole);
        const QFontMetrics metrics = bold.isValid() ? QFontMetrics(bold.value<QFont>()) : fontMetrics();
        widest = std::max(widest, metrics.horizontalAdvance(cell.data().toString()));
    }
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return widest + 2 * margin + 1;
}

void FrozenTableView::PlaceFrozenView() {
    frozen_->setColumnWidth(0, columnWidth(0));
    const int headerHeight = horizontalHeader()->height();
    frozen_->horizontalHeader()->setFixedHeight(headerHeight);
    frozen_->setGeometry(viewport()->x(), viewport()->y() - headerHeight, columnWidth(0),
                         viewport()->height() + headerHeight);
    frozen_->setVisible(model() && model()->columnCount() > 0);
    frozen_->verticalScrollBar()->setValue(verticalScrollBar()->value());
}

void FrozenTableView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    PlaceFrozenView();
}

// The frozen column covers the left edge, so a cell that is brought into sight has to stand right of it.
void FrozenTableView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int across = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (index.column() == 0) {
        horizontalScrollBar()->setValue(across);
        return;
    }
    const int hiddenPart = columnWidth(0) - columnViewportPosition(index.column());
    if (hiddenPart > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hiddenPart);
}

// The header's own order goes back to that of the model, which is the table's: the table moves its column
// and the view shows the table.
void FrozenTableView::HeaderMoved(int, int from, int to) {
    {
        const QSignalBlocker quiet(horizontalHeader());
        horizontalHeader()->moveSection(to, from);
    }
    if (from != 0 && to != 0) Q_EMIT ColumnMoved(from, to);
    viewport()->update();
}

void FrozenTableView::PressColumn(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return;
    const int column = columnAt(event.position().toPoint().x());
    const bool fixedPlace = column <= 0 || column == model()->columnCount() - 1;
    DragColumn = fixedPlace ? 0 : column;
    // Qt selects in the columns that stay; what begins there is gone on with elsewhere.
    const int row = rowAt(event.position().toPoint().y());
    if (DragColumn == 0 && row >= 0 && !event.modifiers().testFlag(Qt::ShiftModifier)) anchorRow_ = row;
}

void FrozenTableView::ReleaseColumn(const QMouseEvent& event) {
    viewport()->unsetCursor();
    if (event.button() != Qt::LeftButton || DragColumn == 0) return;
    const int from = std::exchange(DragColumn, 0);
    const QModelIndex released = indexAt(event.position().toPoint());
    if (released.column() == from) {
        Select(released, event.modifiers());
    } else if (const int to = columnAt(event.position().toPoint().x()); to > 0) {
        Q_EMIT ColumnMoved(from, to);
    }
}

// With Shift the rows from the last one that was selected without it, with Ctrl one more or one less.
void FrozenTableView::Select(const QModelIndex& index, Qt::KeyboardModifiers modifiers) {
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        const int first = std::min(anchorRow_, index.row());
        const int last = std::max(anchorRow_, index.row());
        const QItemSelection rows(model()->index(first, 0), model()->index(last, model()->columnCount() - 1));
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        return selectionModel()->select(rows,
                                        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    anchorRow_ = index.row();
    const auto command = modifiers.testFlag(Qt::ControlModifier) ? QItemSelectionModel::Toggle
                                                                 : QItemSelectionModel::ClearAndSelect;
    selectionModel()->setCurrentIndex(index, command | QItemSelectionModel::Rows);
}

void FrozenTableView::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && event->modifiers() == Qt::NoModifier && currentIndex().isValid())
        return Q_EMIT RowEntered();
    QTableView::keyPressEvent(event);
}

// A press in a column that can be moved selects nothing yet: ReleaseColumn does, where it was a click.
QItemSelectionModel::SelectionFlags FrozenTableView::selectionCommand(const QModelIndex& index,
                                                                      const QEvent* event) const {
    const QEvent::Type type = event ? event->type() : QEvent::None;
    const bool moves = type == QEvent::MouseButtonPress || type == QEvent::MouseMove;
    if (type == QEvent::MouseButtonRelease || (moves && DragColumn > 0)) return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}

bool FrozenTableView::viewportEvent(QEvent* event) {
    if (model() && event->type() == QEvent::MouseButtonPress) {
        PressColumn(*static_cast<QMouseEvent*>(event));
    } else if (model() && event->type() == QEvent::MouseMove && DragColumn > 0) {
        const int column = columnAt(static_cast<QMouseEvent*>(event)->position().toPoint().x());
        viewport()->setCursor(column > 0 && column != DragColumn ? Qt::SizeHorCursor : Qt::ArrowCursor);
    } else if (model() && event->type() == QEvent::MouseButtonRelease) {
        ReleaseColumn(*static_cast<QMouseEvent*>(event));
    }
    return QTableView::viewportEvent(event);
}

}  // namespace brantlow
