// Makes the controls of the settings dialog and ties each to its name in ApplicationSettings: a click goes
// there, and what it changed is shown by all of them.
#pragma once

#include <QHash>
#include <QObject>
#include <functional>
#include <string_view>
#include <vector>

#include "base/windows/display_text.h"
#include "base/windows/mnemonics.h"
#include "screens/application_settings.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace brantlow {

class FolderPicker;

class SettingsBinder final : public QObject {
    Q_OBJECT
  public:
    // `settings` outlives the object; `appPath` is where relative folders lie.
    SettingsBinder(ApplicationSettings& settings, Path appPath);

    // A new page: its letters are free but for those of the tabs and of the buttons below them.
    void BeginPage() { mnemonics_ = Mnemonics(Name(kLettersOfDialog)); }

    // A button that opens a window of its own; it has no line of the settings. A page makes its buttons
    // before its other controls: a page has more words than there are letters, and nothing else presses a
    // button.
    QPushButton* Button(const char* name, std::string_view words, const QString& toolTip);

    // Each makes the control of this name with its words.
    QRadioButton* Option(std::string_view control);
    QCheckBox* Check(std::string_view control);
    QLineEdit* Text(std::string_view control);
    QComboBox* DropDown(std::string_view control);
    // A drop-down list whose text may also be typed.
    QComboBox* TypedDropDown(std::string_view control);
    FolderPicker* Folder(std::string_view drive, std::string_view dir, std::string_view text);
    // A label with these words that leads to `control`.
    QLabel* Label(const QString& words, QWidget* control);
    QLabel* Note(std::string_view label);
    // Both lists of the row whose selected list has this name, under these words, with arrows between them.
    QWidget* Lists(std::string_view selected, const QString& availableWords, const QString& selectedWords);

    // Shows in every control what ApplicationSettings has for it.
    void Refresh();

  Q_SIGNALS:
    // The user entered something.
    void Entered();

  private:
    // Letters that the tabs and the buttons answer to, and that of the schedule's button.
    static constexpr std::string_view kLettersOfDialog = "IUGCNADXS";

    QString Mark(std::string_view words);
    void Show(std::string_view control, QWidget* widget, std::function<void(const SettingsControl&)> show);
    void Done();
    QButtonGroup* GroupOf(std::string_view control);
    QListWidget* List(std::string_view control, std::string_view arrow);
    QAbstractButton* Arrow(std::string_view arrow, bool selects, QListWidget* from);
    void Move(std::string_view arrow, QListWidget* from);

    ApplicationSettings& settings_;
    Path appPath_;
    Mnemonics mnemonics_;
    QHash<QString, QButtonGroup*> groups_;
    std::vector<std::function<void()>> refreshers_;
};

}  // namespace brantlow
