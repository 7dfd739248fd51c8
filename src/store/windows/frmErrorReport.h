// Tells after a selector run that some tickers have too little history, shows the report that lists them and
// offers to download their history anew.
#pragma once

#include <QDialog>

#include "base/files.h"

namespace brantlow {

class frmErrorReport final : public QDialog {
    Q_OBJECT
  public:
    // `report` is the report file in Data/.
    frmErrorReport(Path report, QWidget* parent);

  Q_SIGNALS:
    // Re-populate was pressed; the window has closed.
    void RepopulateAsked();

  private:
    void ViewDataReport();
    void Repopulate();

    Path report_;
};

}  // namespace brantlow
