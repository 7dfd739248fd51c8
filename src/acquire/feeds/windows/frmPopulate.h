// Asks how many years of history the database is to hold and keeps the answer in the settings. The main frame
// then populates the database for the open quote file.
#pragma once

#include <QDialog>
#include <array>

#include "shell/session.h"

class QRadioButton;

namespace brantlow {

class frmPopulate final : public QDialog {
    Q_OBJECT
  public:
    // `session` outlives the window. The option of the settings' years is selected, none where they hold
    // another number.
    frmPopulate(Session& session, QWidget* parent);

  Q_SIGNALS:
    // Populate was pressed and the years are kept; the window has hidden itself.
    void PopulateAsked();

  private:
    void Populate();

    Session& session_;
    std::array<QRadioButton*, 4> options_{};
};

}  // namespace brantlow
