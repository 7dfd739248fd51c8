#include "store/windows/column_menu.h"

#include <QAction>
#include <QMenu>

#include "base/windows/display_text.h"

namespace brantlow {

QMenu* MakeColumnMenu(QWidget* owner, const std::vector<MenuColumn>& columns, const ColumnActions& actions) {
    struct Row {
        const char* name;
        const char* words;
        const std::function<void()>& run;
        bool endsGroup = false;
    };
    const Row rows[] = {
        {"actSortAscending", "Sort &Ascending", actions.sortAscending},
        {"actSortDescending", "Sort &Descending", actions.sortDescending, true},
        {"actMoveLeft", "Move &Left", actions.moveLeft},
        {"actMoveRight", "Move &Right", actions.moveRight, true},
        {"actFit", "&Fit Width", actions.fit},
        {"actFitAll", "Fit All &Widths", actions.fitAll, true},
        {"actHide", "&Hide Column", actions.hide},
    };
    auto* menu = new QMenu(owner);
    menu->setObjectName(QStringLiteral("mnuColumns"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Row& row : rows) {
        QAction* const entry = menu->addAction(QString::fromLatin1(row.words), menu, row.run);
        entry->setObjectName(QString::fromLatin1(row.name));
        entry->setEnabled(row.run != nullptr);
        if (row.endsGroup) menu->addSeparator();
    }
    QMenu* const choose = menu->addMenu(QStringLiteral("&Columns"));
    choose->setObjectName(QStringLiteral("mnuChooseColumns"));
    for (const MenuColumn& column : columns) {
        QString words = column.header;
        QAction* const entry = choose->addAction(words.replace(u'&', QStringLiteral("&&")));
        entry->setCheckable(true);
        entry->setChecked(column.shown);
        QObject::connect(entry, &QAction::triggered, menu,
                         [toggle = actions.toggle, at = column.column] { toggle(at); });
    }
    return menu;
}

}  // namespace brantlow
