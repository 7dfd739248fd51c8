// Delete File: picks a folder and a file in it, asks, and deletes.
#pragma once

#include <QDialog>

#include "base/files.h"
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
    // Starts in `folder`. Both outlive the window.
    frmDeleteFile(Person& person, Path folder, QWidget* parent);

  private:
    void ShowFolder(const Path& folder);
    void EnterFolder(const QListWidgetItem* item);
    void FileChosen(const QListWidgetItem* item);
    void Command1_Click();

    Person& person_;
    Path folder_;
    QLabel* folderName_;
    QListWidget* Dir1;
    QListWidget* File1;
    QLineEdit* chosen_;
    QPushButton* Command1;
};

}  // namespace brantlow
