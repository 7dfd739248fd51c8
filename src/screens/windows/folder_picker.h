// Three controls that choose one folder: a list of places to start from, the folders there, and the path
// itself, which can also be typed. The settings dialog and the setup wizard use it.
#pragma once

#include <QWidget>

#include "base/files.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace brantlow {

class FolderPicker final : public QWidget {
    Q_OBJECT
  public:
    // The names of the controls; without a name for the places there is no list of them.
    struct Names {
        QString drive;
        QString dir;
        QString text;
    };

    // A relative path is one in `appPath`.
    FolderPicker(Path appPath, const Names& names);

    QComboBox* Drive() const { return drive_; }
    QListWidget* Dir() const { return dir_; }
    QLineEdit* Text() const { return text_; }

    // Shows this path, and the folders of its nearest part that exists. It emits nothing.
    void ShowFolder(const QString& text);

  Q_SIGNALS:
    // The user chose or typed this path.
    void FolderEntered(const QString& text);

  private:
    void AddPlaces();
    void Enter(const QString& folder);
    void ShowFolders(const QString& folder);
    void AddRow(const QString& words, const QString& folder, int depth, bool open);
    QString NearestFolder(const QString& text) const;

    Path appPath_;
    QComboBox* drive_ = nullptr;
    QListWidget* dir_;
    QLineEdit* text_;
    QString shown_;
};

}  // namespace brantlow
