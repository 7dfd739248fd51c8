#include "base/windows/file_columns.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

namespace brantlow {

namespace {

void Widen(QFileDialog& dialog, QTreeView& list) {
    const QHeaderView& header = *list.header();
    for (int column = 0; column < header.count(); ++column) {
        const int before = list.columnWidth(column);
        list.resizeColumnToContents(column);
        if (list.columnWidth(column) < before) list.setColumnWidth(column, before);
    }
    const int missing = header.length() - list.viewport()->width();
    if (missing <= 0) return;
    const QRect room = dialog.screen()->availableGeometry();
    dialog.resize(std::min(dialog.width() + missing, room.width()), dialog.height());
    if (dialog.x() + dialog.width() > room.right()) {
        dialog.move(std::max(room.left(), room.right() - dialog.width()), dialog.y());
    }
}

}  // namespace

bool FileColumns::eventFilter(QObject* watched, QEvent* event) {
    auto* const dialog = event->type() == QEvent::Show ? qobject_cast<QFileDialog*>(watched) : nullptr;
    auto* const list = dialog ? dialog->findChild<QTreeView*>(QStringLiteral("treeView")) : nullptr;
    const auto* const files = list ? dialog->findChild<QFileSystemModel*>() : nullptr;
    if (files) {
        // The files come in after the dialog.
        connect(files, &QFileSystemModel::directoryLoaded, list, [dialog, list] { Widen(*dialog, *list); });
        Widen(*dialog, *list);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace brantlow
