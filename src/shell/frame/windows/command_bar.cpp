#include "shell/frame/windows/command_bar.h"

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

#include "base/windows/desktop_picture.h"
#include "base/windows/display_text.h"

namespace brantlow {

namespace {

QIcon Picture(std::string_view name) {
    if (name.empty()) return {};
    return DesktopPicture(Name(name));
}

// The tool tip of a button or an entry with its shortcut, as desktop programs show it.
QString ToolTip(std::string_view words, const QKeySequence& shortcut) {
    if (shortcut.isEmpty()) return Name(words);
    return QStringLiteral("%1 (%2)").arg(Name(words), shortcut.toString(QKeySequence::NativeText));
}

}  // namespace

CommandBar::CommandBar(QMainWindow& frame, QToolBar& buttons, std::function<void(const MenuEntry&)> run)
    : QObject(&frame), frame_(frame), buttons_(buttons), run_(std::move(run)) {
    for (const MenuEntry& command : kMenu) AddRow(command);
    for (const Button& button : kButtons) AddButton(button);
    ApplyRules(kWithNothing, false);
}

void CommandBar::AddRow(const MenuEntry& command) {
    QMenu* parent = menus_.value(Name(command.parent));
    switch (command.row) {
        case MenuRow::Menu: {
            QMenu* menu = parent ? parent->addMenu(Name(command.words))
                                 : frame_.menuBar()->addMenu(Name(command.words));
            menu->setObjectName(Name(command.id));
            menu->setIcon(Picture(command.icon));
            menu->setToolTipsVisible(true);
            menus_.insert(Name(command.id), menu);
            return;
        }
        case MenuRow::PopUpMenu:
            PopUpMenu_ = new QMenu(Name(command.words), &frame_);
            PopUpMenu_->setObjectName(Name(command.id));
            PopUpMenu_->setToolTipsVisible(true);
            menus_.insert(Name(command.id), PopUpMenu_);
            return;
        case MenuRow::Separator:
            parent->addSeparator()->setObjectName(Name(command.id));
            return;
        case MenuRow::RecentFiles:
            return AddRecentFiles(command);
        case MenuRow::Entry:
        case MenuRow::CheckedEntry:
        case MenuRow::ButtonOnly:
            return AddEntry(command);
    }
}

void CommandBar::AddEntry(const MenuEntry& command) {
    auto* entry = new QAction(Name(command.words), this);
    entry->setObjectName(Name(command.id));
    entry->setToolTip(Name(command.toolTip));
    entry->setStatusTip(Name(command.toolTip));
    entry->setShortcut(QKeySequence(Name(command.shortcut), QKeySequence::PortableText));
    entry->setMenuRole(QAction::NoRole);
    if (command.row == MenuRow::CheckedEntry) {
        entry->setCheckable(true);
        entry->setChecked(true);
    }
    connect(entry, &QAction::triggered, this, [this, &command] { run_(command); });
    entries_.insert(Name(command.id), entry);
    if (QMenu* menu = menus_.value(Name(command.parent))) {
        entry->setIcon(Picture(command.icon));
        menu->addAction(entry);
    } else if (command.row == MenuRow::ButtonOnly) {
        entry->setIcon(Picture(command.icon));
        frame_.addAction(entry);
    } else {
        frame_.menuBar()->addAction(entry);
    }
}

void CommandBar::AddRecentFiles(const MenuEntry& command) {
    QMenu* menu = menus_.value(Name(command.parent));
    recentBar_ = menu->addSeparator();
    for (std::size_t entry = 1; entry <= kRecentFileCount; ++entry) {
        QAction* action = menu->addAction(QString());
        action->setObjectName(Name(command.id) + QString::number(entry));
        action->setVisible(false);
        connect(action, &QAction::triggered, this, [this, entry] { Q_EMIT RecentFileChosen(entry); });
        recent_.append(action);
    }
}

// A button is an action of its own with the entry's picture, so that its tool tip can differ from the
// entry's; it follows the entry's state.
void CommandBar::AddButton(const Button& button) {
    const MenuEntry* command = FindMenuEntry(button.command);
    if (button.startsGroup && !button.waitsForQuoteFile) buttons_.addSeparator();
    auto* action = new QAction(Picture(command->icon), Name(button.toolTip), this);
    QAction* entry = Entry(button.command);
    action->setToolTip(ToolTip(button.toolTip, entry->shortcut()));
    action->setStatusTip(Name(command->toolTip));
    if (button.waitsForQuoteFile) {
        // Once it is there it stays lit, with whatever is open: its command says what it needs.
        connect(action, &QAction::triggered, this, [this, command] { run_(*command); });
        waiting_.append(action);
        if (button.startsGroup) waiting_.append(buttons_.addSeparator());
        for (QAction* hidden : waiting_) hidden->setVisible(false);
    } else {
        connect(action, &QAction::triggered, entry, &QAction::trigger);
        connect(entry, &QAction::changed, action,
                [entry, action] { action->setEnabled(entry->isEnabled()); });
    }
    buttons_.addAction(action);
    buttons_.widgetForAction(action)->setObjectName(Name(button.id));
}

QAction* CommandBar::Entry(std::string_view id) const {
    return entries_.value(Name(id));
}

QMenu* CommandBar::Menu(std::string_view id) const {
    return menus_.value(Name(id));
}

void CommandBar::ApplyRules(OpenStates state, bool inRun) {
    for (const MenuEntry& command : kMenu) {
        if (QAction* entry = Entry(command.id)) entry->setEnabled(IsEnabled(command, state, inRun));
    }
    for (QAction* entry : recent_) entry->setEnabled(!inRun);
    for (QAction* button : waiting_) button->setEnabled(!inRun);
}

void CommandBar::ShowQuoteFileButtons() {
    for (QAction* button : waiting_) button->setVisible(true);
}

void CommandBar::ShowRecentFiles(const RecentFileNames& names) {
    const auto isFilled = [](const std::string& name) { return !name.empty(); };
    recentBar_->setVisible(std::any_of(names.begin(), names.end(), isFilled));
    for (std::size_t i = 0; i < names.size(); ++i) {
        QString words = Shown(names[i]);
        words.replace(QLatin1Char('&'), QStringLiteral("&&"));
        QAction* action = recent_.at(static_cast<qsizetype>(i));
        action->setVisible(isFilled(names[i]));
        action->setText(QStringLiteral("&%1 %2").arg(i + 1).arg(words));
    }
}

}  // namespace brantlow
