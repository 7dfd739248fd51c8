// Asks whether the history of a ticker that leaves the table goes too.
#pragma once

#include <QDialog>
#include <string>

namespace brantlow {

// Accepted when the history is to be deleted; closing the window keeps it.
class frmDeleteQuoteDataBase final : public QDialog {
    Q_OBJECT
  public:
    frmDeleteQuoteDataBase(const std::string& ticker, QWidget* parent);
};

}  // namespace brantlow
