// Asks whether the history of a ticker that leaves the table goes too, or whether the ticker stays.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

namespace brantlow {

class frmDeleteQuoteDataBase final : public QDialog {
    Q_OBJECT
  public:
    frmDeleteQuoteDataBase(const std::string& ticker, QWidget* parent);

    // Whether the history goes; nothing when the ticker stays, as after Escape.
    std::optional<bool> Ask();
};

}  // namespace brantlow
