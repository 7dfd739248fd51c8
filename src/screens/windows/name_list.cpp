#include "screens/windows/name_list.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "screens/selector_settings.h"

namespace brantlow {

namespace {

// Most names; beside it, what is set to numbers can be scrolled.
constexpr int kLeastLetters = 36;
// Where large letters on a small screen leave no more.
constexpr int kPercentOfScreen = 30;

}  // namespace

NameList::NameList(const std::vector<std::string>& names, const Words& words)
    : names_(names), deleteMoves_(words.deleteMoves), count_(new QLabel), list_(new QListWidget) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    auto* head = new QHBoxLayout;
    auto* caption = new QLabel(words.caption);
    caption->setBuddy(list_);
    head->addWidget(caption);
    head->addStretch();
    count_->setForegroundRole(QPalette::PlaceholderText);
    head->addWidget(count_);
    layout->addLayout(head);
    if (words.filtered) AddFilter(words.listName);
    list_->setObjectName(words.listName);
    list_->setAccessibleName(words.caption);
    list_->setToolTip(words.toolTip);
    list_->setMinimumWidth(std::min(fontMetrics().averageCharWidth() * kLeastLetters,
                                    RoomOnScreen(*this).width() * kPercentOfScreen / 100));
    list_->installEventFilter(this);
    layout->addWidget(list_);
    connect(list_, &QListWidget::itemDoubleClicked, this, &NameList::MoveAsked);
    connect(list_, &QListWidget::currentRowChanged, this, &NameList::SelectionChanged);
}

void NameList::AddFilter(const QString& listName) {
    filter_ = new QLineEdit;
    filter_->setObjectName(QStringLiteral("Filter"));
    filter_->setAccessibleName(QStringLiteral("Filter of %1").arg(listName));
    filter_->setPlaceholderText(QStringLiteral("Filter the names, for example: above ma 60"));
    filter_->setToolTip(QStringLiteral("Only names with all of these words are shown (Ctrl+F)"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    layout()->addWidget(filter_);
    connect(filter_, &QLineEdit::textChanged, this, &NameList::ApplyFilter);
}

void NameList::AddItem(const std::string& name) {
    auto* item = new QListWidgetItem(Shown(name), list_);
    const std::string_view remark = NameRemark(name);
    item->setToolTip(Name(NameMeaning(name) + "\n" + std::string(remark)).trimmed());
    if (remark.empty()) return;
    QFont font = list_->font();
    font.setItalic(true);
    item->setFont(font);
}

void NameList::ShowAll() {
    list_->clear();
    for (const std::string& name : names_) AddItem(name);
    ApplyFilter();
}

void NameList::NameAdded() {
    AddItem(names_.back());
    ApplyFilter();
    list_->setCurrentRow(list_->count() - 1);
    list_->scrollToBottom();
}

void NameList::NameRemoved(std::size_t entry) {
    const int row = static_cast<int>(entry);
    delete list_->takeItem(row);
    SelectNear(row);
    ShowCount();
}

std::optional<std::size_t> NameList::Selected() const {
    const int row = list_->currentRow();
    if (row < 0 || list_->isRowHidden(row)) return std::nullopt;
    return static_cast<std::size_t>(row);
}

std::string NameList::SelectedName() const {
    const std::optional<std::size_t> entry = Selected();
    return entry ? names_[*entry] : std::string();
}

// The name that the filter spells in full goes before those that hold its words among others.
bool NameList::SelectExact(const std::string& filter) {
    for (int row = 0; row < list_->count(); ++row) {
        if (!IsExactly(names_[static_cast<std::size_t>(row)], filter)) continue;
        list_->setCurrentRow(row);
        list_->scrollToItem(list_->item(row), QAbstractItemView::PositionAtTop);
        return true;
    }
    return false;
}

void NameList::FocusFilter() {
    if (!filter_) return;
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
}

void NameList::ApplyFilter() {
    const std::string filter = filter_ ? filter_->text().toStdString() : std::string();
    for (int row = 0; row < list_->count(); ++row) {
        list_->setRowHidden(row, !PassesFilter(names_[static_cast<std::size_t>(row)], filter));
    }
    if (!filter.empty() && !SelectExact(filter) && !Selected()) SelectNear(0);
    ShowCount();
    Q_EMIT SelectionChanged();
}

// The first row in sight from `row` on, else the last one before it.
void NameList::SelectNear(int row) {
    int near = row;
    while (near < list_->count() && list_->isRowHidden(near)) ++near;
    if (near >= list_->count()) {
        near = std::min(row, list_->count()) - 1;
        while (near >= 0 && list_->isRowHidden(near)) --near;
    }
    list_->setCurrentRow(near);
    Q_EMIT SelectionChanged();
}

void NameList::ShowCount() {
    int inSight = 0;
    for (int row = 0; row < list_->count(); ++row) {
        if (!list_->isRowHidden(row)) ++inSight;
    }
    const int all = list_->count();
    count_->setText(inSight == all ? QStringLiteral("%1 names").arg(all)
                                   : QStringLiteral("%1 of %2 names").arg(inSight).arg(all));
}

bool NameList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == list_ ? KeyInList(key) : KeyInFilter(key)) return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool NameList::KeyInList(int key) {
    const bool moves =
        key == Qt::Key_Return || key == Qt::Key_Enter || (deleteMoves_ && key == Qt::Key_Delete);
    if (moves) Q_EMIT MoveAsked();
    return moves;
}

bool NameList::KeyInFilter(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Q_EMIT MoveAsked();
        return true;
    }
    if (key == Qt::Key_Down) {
        list_->setFocus(Qt::TabFocusReason);
        return true;
    }
    // The first Escape takes the filter away, the next one closes the window.
    const bool takesFilterAway = key == Qt::Key_Escape && !filter_->text().isEmpty();
    if (takesFilterAway) filter_->clear();
    return takesFilterAway;
}

}  // namespace brantlow
