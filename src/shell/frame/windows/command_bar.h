// The menu bar and the row of picture buttons of the main frame, built from the command catalogue.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <functional>
#include <string>
#include <string_view>

#include "shell/frame/commands.h"
#include "shell/recent_files.h"

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace brantlow {

class CommandBar final : public QObject {
    Q_OBJECT
  public:
    // Fills the menu bar of `frame` and `buttons`. `run` takes the name of the entry that was chosen.
    CommandBar(QMainWindow& frame, QToolBar& buttons, std::function<void(const MenuEntry&)> run);

    QAction* Entry(std::string_view id) const;
    QMenu* Menu(std::string_view id) const;
    // What a right-click shows, on the empty frame and on a row of the quote table.
    QMenu& PopUpMenu() const { return *PopUpMenu_; }
    // Applies the enabling rules.
    void ApplyRules(OpenStates state, bool inRun);
    // Shows and enables the buttons that wait for an end-of-day table; they stay so.
    void ShowQuoteFileButtons();
    // The recent files' names as entries; an empty one keeps its entry hidden.
    void ShowRecentFiles(const RecentFileNames& names);

  Q_SIGNALS:
    // A recent-file entry was chosen, 1 to 4.
    void RecentFileChosen(std::size_t entry);

  private:
    void AddRow(const MenuEntry& command);
    void AddEntry(const MenuEntry& command);
    void AddRecentFiles(const MenuEntry& command);
    void AddButton(const Button& button);

    QMainWindow& frame_;
    QToolBar& buttons_;
    std::function<void(const MenuEntry&)> run_;
    QHash<QString, QAction*> entries_;
    QHash<QString, QMenu*> menus_;
    QMenu* PopUpMenu_ = nullptr;
    QList<QAction*> recent_;
    QAction* recentBar_ = nullptr;
    QList<QAction*> waiting_;
};

}  // namespace brantlow
