// One of the two lists of names of the condition editor: its caption, how many names it holds, and a filter
// box where the list is long. It shows the names of a vector that the panel owns and tells which entry is to
// move.
#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;

namespace brantlow {

class NameList final : public QWidget {
    Q_OBJECT
  public:
    struct Words {
        QString caption;
        QString listName;
        QString toolTip;
        bool filtered = false;
        // Delete moves a name out of this list, as Enter does.
        bool deleteMoves = false;
    };

    // `names` outlives the list.
    NameList(const std::vector<std::string>& names, const Words& words);

    // Shows the names anew.
    void ShowAll();
    // The last name was added, or the entry taken away: the list follows, and what stands next is selected.
    void NameAdded();
    void NameRemoved(std::size_t entry);
    // The entry that is selected and in sight, and its name; empty without one.
    std::optional<std::size_t> Selected() const;
    std::string SelectedName() const;
    void FocusFilter();

  Q_SIGNALS:
    // Double click, Enter or Delete: the selected entry is to move.
    void MoveAsked();
    void SelectionChanged();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddFilter(const QString& listName);
    void AddItem(const std::string& name);
    void ApplyFilter();
    void SelectNear(int row);
    bool SelectExact(const std::string& filter);
    void ShowCount();
    bool KeyInList(int key);
    bool KeyInFilter(int key);

    const std::vector<std::string>& names_;
    bool deleteMoves_;
    QLabel* count_;
    QLineEdit* filter_ = nullptr;
    QListWidget* list_;
};

}  // namespace brantlow
