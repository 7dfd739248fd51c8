#include "shell/frame/windows/frmKeys.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "base/windows/wrapped_cells.h"
#include "shell/frame/commands.h"
#include "shell/frame/own_keys.h"
#include "shell/frame/palette_rows.h"

namespace brantlow {

namespace {

constexpr int kWhere = 1;
constexpr int kWhat = 2;
constexpr int kWhatInLetters = 60;
constexpr int kHeightInLines = 26;

QString Native(std::string_view keys) {
    return QKeySequence(Name(keys), QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

void AddRow(QTreeWidget& list, const QString& keys, const QString& where, std::string_view what) {
    new QTreeWidgetItem(&list, {keys, where, Name(what)});
}

void FillList(QTreeWidget& list) {
    for (const MenuEntry& entry : kMenu) {
        if (entry.shortcut.empty()) continue;
        AddRow(list, Native(entry.shortcut), Shown(PlainWords(entry.words)), entry.toolTip);
    }
    for (const OwnKey& key : kOwnKeys) AddRow(list, Name(key.keys), Name(key.where), key.what);
}

}  // namespace

frmKeys::frmKeys(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmKeys"));
    setWindowTitle(QStringLiteral("Keys"));
    auto* layout = new QVBoxLayout(this);
    auto* find = new QLineEdit;
    find->setObjectName(QStringLiteral("txtFind"));
    find->setPlaceholderText(QStringLiteral("Find a key or what it does"));
    find->setAccessibleName(QStringLiteral("Find a key or what it does"));
    find->setClearButtonEnabled(true);
    layout->addWidget(find);
    auto* list = new QTreeWidget;
    list->setObjectName(QStringLiteral("lstKeys"));
    list->setAccessibleName(QStringLiteral("All keys"));
    list->setHeaderLabels(
        {QStringLiteral("Key"), QStringLiteral("Command or place"), QStringLiteral("What it does")});
    list->setRootIsDecorated(false);
    FillList(*list);
    list->setCurrentItem(list->topLevelItem(0));
    for (const int column : {0, 1}) list->resizeColumnToContents(column);
    WrapCells(*list, {0, kWhere, kWhat});
    layout->addWidget(list, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(find, &QLineEdit::textChanged, list, [list](const QString& typed) {
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            QTreeWidgetItem* const item = list->topLevelItem(row);
            const QString line = item->text(0) + u' ' + item->text(1) + u' ' + item->text(2);
            item->setHidden(!line.contains(typed.trimmed(), Qt::CaseInsensitive));
        }
    });
    const int width =
        list->columnWidth(0) + list->columnWidth(1) + fontMetrics().averageCharWidth() * kWhatInLetters;
    resize(QSize(width, fontMetrics().height() * kHeightInLines).boundedTo(RoomOnScreen(*this)));
    // The keys and the places may take so many parts of it; the rest tells what the keys do.
    list->setColumnWidth(0, std::min(list->columnWidth(0), this->width() / 4));
    list->setColumnWidth(kWhere, std::min(list->columnWidth(kWhere), this->width() / 3));
    find->setFocus();
}

}  // namespace brantlow
