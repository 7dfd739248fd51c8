// Offers a new version of the program.
#pragma once

#include <QDialog>

namespace brantlow {

class frmVersionUpdate final : public QDialog {
    Q_OBJECT
  public:
    explicit frmVersionUpdate(QWidget* parent);

  Q_SIGNALS:
    // The link to what is new was clicked.
    void AboutAsked();
};

}  // namespace brantlow
