// Asks how many years of history the database is to hold and keeps the answer in the settings. The main frame
// then populates the database for the open quote file.
#pragma once

#include <QDialog>
#include <array>

#include "acquire/web/web.h"
#include "shell/session.h"

class QLabel;
class QRadioButton;

namespace brantlow {

class frmPopulate final : public QDialog {
    Q_OBJECT
  public:
    // `session` outlives the window. The option of the settings' years is selected, none where they hold
    // another number.
    frmPopulate(Session& session, QWidget* parent);

    // Tells who is asked, and how long so many tickers take there, where a live source serves.
    void ShowSource(std::size_t tickers, Web& web);

  Q_SIGNALS:
    // Populate was pressed and the years are kept; the window has hidden itself.
    void PopulateAsked();

  private:
    void Populate();
    double ChosenYears() const;
    void ShowWhoIsAsked();

    Session& session_;
    QLabel* source_;
    std::size_t tickers_ = 0;
    Web* web_ = nullptr;
    std::array<QRadioButton*, 4> options_{};
};

}  // namespace brantlow
