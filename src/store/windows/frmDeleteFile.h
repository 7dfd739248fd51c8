// Delete File: picks a folder and a file in it, asks, and deletes.
#pragma once

#include <QDialog>

#include "base/file_change.h"
#include "shell/person.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace brantlow {

class frmDeleteFile final : public QDialog {
    Q_OBJECT
  public:
    // Starts in `folder`. A deletion can be undone at `place`. The person outlives the window.
    frmDeleteFile(Person& person, ChangePlace place, Path folder, QWidget* parent);

  private:
    void ShowFolder(const Path& folder);
    void EnterFolder(const QListWidgetItem* item);
    void FileChosen(const QListWidgetItem* item);
    void Command1_Click();

    Person& person_;
    ChangePlace place_;
    Path folder_;
    QLabel* folderName_;
    QListWidget* Dir1;
    QListWidget* File1;
    QLineEdit* chosen_;
    QPushButton* Command1;
};

}  // namespace brantlow
