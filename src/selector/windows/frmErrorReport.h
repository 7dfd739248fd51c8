// Tells after a selector run that some tickers have too little history, and shows the report that lists them.
#pragma once

#include <QDialog>

#include "base/files.h"

namespace brantlow {

class frmErrorReport final : public QDialog {
    Q_OBJECT
  public:
    // `report` is the report file in Data/.
    frmErrorReport(Path report, QWidget* parent);

  private:
    void ViewDataReport();

    Path report_;
};

}  // namespace brantlow
