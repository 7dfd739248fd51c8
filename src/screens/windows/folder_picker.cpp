#include "screens/windows/folder_picker.h"
#include "base/windows/wheel_guard.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QStorageInfo>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr int kFolderRole = Qt::UserRole;
constexpr int kVisibleRows = 4;
constexpr int kDriveLetters = 12;
constexpr int kIndentBlanks = 2;

// Where file systems that a user plugs in or joins are found.
constexpr const char* kMountFolders[] = {"/media/", "/mnt/", "/run/media/"};

bool IsUsersVolume(const QString& root) {
    return std::any_of(std::begin(kMountFolders), std::end(kMountFolders),
                       [&](const char* folder) { return root.startsWith(QLatin1String(folder)); });
}

}  // namespace

FolderPicker::FolderPicker(Path appPath, const Names& names)
    : appPath_(std::move(appPath)), dir_(new QListWidget), text_(new QLineEdit) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!names.drive.isEmpty()) {
        drive_ = new QComboBox;
        GuardWheel(*drive_);
        drive_->setObjectName(names.drive);
        AddPlaces();
        layout->addWidget(drive_);
    }
    dir_->setObjectName(names.dir);
    dir_->setAccessibleName(QStringLiteral("Folders"));
    dir_->setToolTip(QStringLiteral("Double-click a folder, or press Enter on it, to select it"));
    dir_->setMinimumHeight(kVisibleRows * dir_->fontMetrics().height());
    layout->addWidget(dir_, 1);
    text_->setObjectName(names.text);
    text_->setAccessibleName(QStringLiteral("Selected path"));
    layout->addWidget(text_);
    connect(dir_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { Enter(item->data(kFolderRole).toString()); });
    connect(text_, &QLineEdit::textEdited, this, [this](const QString& text) {
        ShowFolders(NearestFolder(text));
        Q_EMIT FolderEntered(text);
    });
}

void FolderPicker::AddPlaces() {
    drive_->setAccessibleName(QStringLiteral("Places"));
    drive_->setToolTip(QStringLiteral("Go to a place"));
    drive_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    drive_->setMinimumContentsLength(kDriveLetters);
    drive_->addItem(QStringLiteral("Brantlow"), ShownPath(appPath_));
    drive_->addItem(QStringLiteral("Home"), QDir::homePath());
    drive_->addItem(QDir::rootPath(), QDir::rootPath());
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isReady() && IsUsersVolume(volume.rootPath())) {
            drive_->addItem(volume.displayName(), volume.rootPath());
        }
    }
    drive_->setPlaceholderText(QStringLiteral("Go to ..."));
    drive_->setCurrentIndex(-1);
    connect(drive_, &QComboBox::activated, this,
            [this](int row) { Enter(drive_->itemData(row).toString()); });
}

void FolderPicker::Enter(const QString& folder) {
    text_->setText(folder);
    // What was read before may have changed on the disk.
    shown_.clear();
    ShowFolders(folder);
    Q_EMIT FolderEntered(folder);
}

void FolderPicker::ShowFolder(const QString& text) {
    if (text_->text() != text) text_->setText(text);
    ShowFolders(NearestFolder(text));
}

QString FolderPicker::NearestFolder(const QString& text) const {
    QString folder = QDir::cleanPath(ShownPath(FolderOfSetting(appPath_, text.toStdString())));
    while (folder.contains(QLatin1Char('/')) && !QDir(folder).exists()) {
        folder.truncate(folder.lastIndexOf(QLatin1Char('/')));
    }
    return folder.isEmpty() ? QDir::rootPath() : folder;
}

// The way down to the folder, one row a step, and the folders in it.
void FolderPicker::ShowFolders(const QString& folder) {
    if (folder == shown_) return;
    shown_ = folder;
    dir_->clear();
    AddRow(QDir::rootPath(), QDir::rootPath(), 0, true);
    QString path;
    int depth = 0;
    for (const QString& step : folder.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        path += QLatin1Char('/') + step;
        AddRow(step, path, ++depth, true);
    }
    QListWidgetItem* const last = dir_->item(dir_->count() - 1);
    for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        AddRow(name, path + QLatin1Char('/') + name, depth + 1, false);
    }
    dir_->setCurrentItem(last);
    dir_->scrollToItem(last, QAbstractItemView::PositionAtTop);
}

void FolderPicker::AddRow(const QString& words, const QString& folder, int depth, bool open) {
    auto* item =
        new QListWidgetItem(style()->standardIcon(open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon),
                            QString(depth * kIndentBlanks, QLatin1Char(' ')) + words, dir_);
    item->setData(kFolderRole, folder);
}

}  // namespace brantlow
