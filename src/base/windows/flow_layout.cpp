#include "base/windows/flow_layout.h"

#include <algorithm>
#include <utility>

namespace brantlow {

FlowLayout::FlowLayout(QWidget* parent, int gap) : QLayout(parent), gap_(gap) {
    setContentsMargins(gap, gap, gap, gap);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(items_);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.append(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return items_.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < count() ? items_.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return Place(QRect(0, 0, width, 0), false);
}

void FlowLayout::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    Place(area, true);
}

// All in one row.
QSize FlowLayout::sizeHint() const {
    const QMargins margins = contentsMargins();
    QSize size(margins.left() + margins.right(), 0);
    int shown = 0;
    for (const QLayoutItem* item : items_) {
        if (item->isEmpty()) continue;
        size.rwidth() += item->sizeHint().width() + (shown++ > 0 ? gap_ : 0);
        size.setHeight(std::max(size.height(), item->sizeHint().height()));
    }
    return size + QSize(0, margins.top() + margins.bottom());
}

// As narrow as the widest of them.
QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_) {
        if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
    }
    return size.grownBy(contentsMargins());
}

// Goes through the places within `area`; the height that they take. The items of a row stand in its middle.
int FlowLayout::Place(const QRect& area, bool move) const {
    const QRect inner = area.marginsRemoved(contentsMargins());
    int left = inner.left();
    int top = inner.top();
    int rowHeight = 0;
    QList<std::pair<QLayoutItem*, int>> row;
    const auto endRow = [&] {
        for (const auto& [item, x] : row) {
            const QSize size = item->sizeHint();
            if (move) item->setGeometry(QRect(QPoint(x, top + (rowHeight - size.height()) / 2), size));
        }
        row.clear();
    };
    for (QLayoutItem* item : items_) {
        if (item->isEmpty()) continue;
        const QSize size = item->sizeHint();
        if (left > inner.left() && left + size.width() > inner.right() + 1) {
            endRow();
            left = inner.left();
            top += rowHeight + gap_;
            rowHeight = 0;
        }
        row.append({item, left});
        left += size.width() + gap_;
        rowHeight = std::max(rowHeight, size.height());
    }
    endRow();
    return top + rowHeight - area.top() + contentsMargins().bottom();
}

}  // namespace brantlow
