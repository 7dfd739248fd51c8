#include "shell/frame/windows/frmForumLogin.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "base/windows/display_text.h"
#include "shell/user_store.h"

namespace brantlow {

namespace {

constexpr std::string_view kSection = "UsersForum";
constexpr std::string_view kName = "UserName";
constexpr std::string_view kPassword = "Password";
constexpr int kFieldWidth = 260;

QLineEdit* AddField(QFormLayout& form, const QString& label, const QString& name) {
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setMinimumWidth(kFieldWidth);
    form.addRow(label, field);
    return field;
}

}  // namespace

ForumUser LoadForumUser(const Path& userStore) {
    return {GetSetting(userStore, kSection, kName, {}), GetSetting(userStore, kSection, kPassword, {})};
}

std::error_code SaveForumUser(const Path& userStore, const ForumUser& user) {
    if (const auto error = SaveSetting(userStore, kSection, kName, user.name)) return error;
    std::error_code error;
    std::filesystem::permissions(
        userStore, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write, error);
    return error ? error : SaveSetting(userStore, kSection, kPassword, user.password);
}

frmForumLogin::frmForumLogin(Path userStore, QWidget* parent)
    : QDialog(parent), userStore_(std::move(userStore)) {
    setObjectName(QStringLiteral("frmForumLogin"));
    setWindowTitle(QStringLiteral("User's Forum"));
    auto* form = new QFormLayout;
    name_ = AddField(*form, QStringLiteral("&User name:"), QStringLiteral("Text1"));
    password_ = AddField(*form, QStringLiteral("&Password:"), QStringLiteral("Text2"));
    password_->setEchoMode(QLineEdit::Password);
    auto* note =
        new QLabel(QStringLiteral("Both are kept for the next time in\n%1").arg(ShownPath(userStore_)));
    note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(QStringLiteral("&Log In"));
    ok->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(name_, &QLineEdit::textChanged, ok,
            [ok](const QString& name) { ok->setEnabled(!name.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &frmForumLogin::Store);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmForumLogin::Store() {
    error_ =
        SaveForumUser(userStore_, {name_->text().trimmed().toStdString(), password_->text().toStdString()});
    accept();
}

}  // namespace brantlow
