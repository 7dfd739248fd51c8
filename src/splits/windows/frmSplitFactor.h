// Asks by which split the history of a ticker is to be restated.
#pragma once

#include <QDialog>
#include <string>

class QButtonGroup;
class QPushButton;

namespace brantlow {

// Accepted when a factor was chosen and Continue pressed.
class frmSplitFactor final : public QDialog {
    Q_OBJECT
  public:
    frmSplitFactor(const std::string& ticker, QWidget* parent);

    // New shares divided by old shares; 0 while nothing is chosen.
    double SplitFactor() const;

  private:
    QWidget* BuildChoices();

    QButtonGroup* choices_;
    QPushButton* continue_ = nullptr;
};

}  // namespace brantlow
