#include "store/windows/frmDeleteFile.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "base/windows/display_text.h"
#include "shell/file_kind.h"
#include "store/file_deletion.h"
#include "store/table_origin.h"

namespace brantlow {

namespace {

constexpr QSize kWindowSize(620, 440);
constexpr const char* kParentFolder = "..";

std::vector<std::string> FolderNamesIn(const Path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        std::error_code ignored;
        if (entry.is_directory(ignored)) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// A list keeps the bytes of a name beside its words, which may show them otherwise.
void AddName(QListWidget& list, const std::string& name) {
    auto* item = new QListWidgetItem(Shown(name), &list);
    item->setData(Qt::UserRole, QByteArray::fromStdString(name));
}

std::string NameOf(const QListWidgetItem& item) {
    return item.data(Qt::UserRole).toByteArray().toStdString();
}

QLabel* Caption(const char* name, const char* words, QWidget* buddy) {
    auto* label = new QLabel(QString::fromLatin1(words));
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return label;
}

}  // namespace

frmDeleteFile::frmDeleteFile(Person& person, ChangePlace place, Path folder, QWidget* parent)
    : QDialog(parent),
      person_(person),
      place_(std::move(place)),
      folder_(std::move(folder)),
      folderName_(new QLabel),
      Dir1(new QListWidget),
      File1(new QListWidget),
      chosen_(new QLineEdit) {
    setObjectName(QStringLiteral("frmDeleteFile"));
    setWindowTitle(QStringLiteral("Delete File"));
    resize(kWindowSize);
    Dir1->setObjectName(QStringLiteral("Dir1"));
    Dir1->setToolTip(QStringLiteral("Double click, or the Enter key, opens a folder"));
    Dir1->setAccessibleName(QStringLiteral("Select Directory"));
    File1->setObjectName(QStringLiteral("File1"));
    File1->setAccessibleName(QStringLiteral("Select File"));
    chosen_->setObjectName(QStringLiteral("Text1"));
    chosen_->setReadOnly(true);
    chosen_->setFocusPolicy(Qt::NoFocus);
    chosen_->setPlaceholderText(QStringLiteral("No file is selected"));
    folderName_->setObjectName(QStringLiteral("lblFolder"));
    folderName_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* warning = new QLabel(QStringLiteral("Deleted files may be very difficult to recover."));
    warning->setObjectName(QStringLiteral("Label1"));

    auto* layout = new QGridLayout(this);
    layout->addWidget(warning, 0, 0, 1, 2);
    layout->addWidget(folderName_, 1, 0, 1, 2);
    layout->addWidget(Caption("Label2", "Select Directory", Dir1), 2, 0);
    layout->addWidget(Caption("Label3", "Select File", File1), 2, 1);
    layout->addWidget(Dir1, 3, 0);
    layout->addWidget(File1, 3, 1);
    layout->setColumnStretch(1, 1);
    layout->addWidget(chosen_, 4, 0, 1, 2);
    auto* buttons = new QDialogButtonBox;
    Command1 = buttons->addButton(QStringLiteral("&Delete"), QDialogButtonBox::ActionRole);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    auto* cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("Command2"));
    cancel->setAutoDefault(false);
    layout->addWidget(buttons, 5, 0, 1, 2);

    connect(Dir1, &QListWidget::itemActivated, this, &frmDeleteFile::EnterFolder);
    connect(File1, &QListWidget::currentItemChanged, this, &frmDeleteFile::FileChosen);
    connect(Command1, &QPushButton::clicked, this, &frmDeleteFile::Command1_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowFolder(folder_);
    Dir1->setFocus();
}

void frmDeleteFile::ShowFolder(const Path& folder) {
    folder_ = folder;
    folderName_->setText(ShownPath(folder_));
    Dir1->clear();
    if (folder_.has_relative_path()) AddName(*Dir1, kParentFolder);
    for (const std::string& name : FolderNamesIn(folder_)) AddName(*Dir1, name);
    File1->clear();
    for (const std::string& name : FileNamesIn(folder_)) AddName(*File1, name);
    FileChosen(nullptr);
}

void frmDeleteFile::EnterFolder(const QListWidgetItem* item) {
    const std::string name = NameOf(*item);
    ShowFolder(name == kParentFolder ? folder_.parent_path() : folder_ / name);
}

void frmDeleteFile::FileChosen(const QListWidgetItem* item) {
    chosen_->setText(item ? item->text() : QString());
    Command1->setEnabled(item != nullptr);
}

void frmDeleteFile::Command1_Click() {
    const QListWidgetItem* item = File1->currentItem();
    if (!item || !person_.AskBeforeDestroying(kDeleteFileQuestion, kDeleteFileTitle)) return;
    const std::string name = NameOf(*item);
    if (!MayDelete(name)) return person_.Say(kMayNotDelete);
    const Path file = folder_ / name;
    FileChange change(place_, "Delete " + name);
    Failure fault = change.Delete(file);
    if (!fault && KindOf(name) == FileKind::Dbe) fault = change.Delete(OriginFile(file));
    if (!fault) fault = change.Commit();
    if (fault) return person_.Say(ChangeSentence("Delete " + name, fault));
    ShowFolder(folder_);
}

}  // namespace brantlow
