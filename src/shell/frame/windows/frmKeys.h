// All keys on one page: those of the menu, and those that the windows answer to beside it.
#pragma once

#include <QDialog>

namespace brantlow {

class frmKeys final : public QDialog {
    Q_OBJECT
  public:
    explicit frmKeys(QWidget* parent);
};

}  // namespace brantlow
