#include "base/windows/wrapped_cells.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace brantlow {

namespace {

class WrappedCell final : public QStyledItemDelegate {
  public:
    explicit WrappedCell(QTreeView& list) : QStyledItemDelegate(&list), list_(list) {}

    // A list asks without a width, for which no words are broken.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem wrapped = option;
        wrapped.rect = QRect(0, 0, list_.columnWidth(index.column()), list_.fontMetrics().height());
        return QStyledItemDelegate::sizeHint(wrapped, index);
    }

  private:
    QTreeView& list_;
};

}  // namespace

void WrapCells(QTreeView& list, std::initializer_list<int> columns) {
    list.setUniformRowHeights(false);
    list.setWordWrap(true);
    auto* const cell = new WrappedCell(list);
    for (const int column : columns) list.setItemDelegateForColumn(column, cell);
    QObject::connect(list.header(), &QHeaderView::sectionResized, cell,
                     [cell] { Q_EMIT cell->sizeHintChanged({}); });
}

}  // namespace brantlow
