// The menu of a table's header: sorting, choosing, moving and sizing columns.
#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

class QMenu;
class QWidget;

namespace brantlow {

// A column that can be shown or hidden.
struct MenuColumn {
    std::size_t column = 0;
    QString header;
    bool shown = false;
};

// What the entries do with the column that was pressed; the last with the one that was chosen.
struct ColumnActions {
    std::function<void()> sortAscending;
    std::function<void()> sortDescending;
    std::function<void()> moveLeft;   // null where it cannot be moved so
    std::function<void()> moveRight;  // likewise
    std::function<void()> fit;
    std::function<void()> fitAll;
    std::function<void()> hide;  // null where it stays
    std::function<void(std::size_t column)> toggle;
};

// The menu, which goes when it is closed. `columns` are all but the tickers', in their order.
QMenu* MakeColumnMenu(QWidget* owner, const std::vector<MenuColumn>& columns, const ColumnActions& actions);

}  // namespace brantlow
