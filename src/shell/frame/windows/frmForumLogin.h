// Asks for the name and the password that take a user to the vendor's forum, and keeps them in the per-user
// store, which only its owner may read from then on.
#pragma once

#include <QDialog>
#include <string>
#include <system_error>

#include "base/files.h"

class QLineEdit;
class QPushButton;

namespace brantlow {

struct ForumUser {
    std::string name;  // empty while none is stored
    std::string password;
};

ForumUser LoadForumUser(const Path& userStore);
std::error_code SaveForumUser(const Path& userStore, const ForumUser& user);

class frmForumLogin final : public QDialog {
    Q_OBJECT
  public:
    frmForumLogin(Path userStore, QWidget* parent);

    // Why the name was not stored when the window was left by its button.
    std::error_code StoreError() const { return error_; }

  private:
    void Store();

    Path userStore_;
    QLineEdit* name_;
    QLineEdit* password_;
    std::error_code error_;
};

}  // namespace brantlow
