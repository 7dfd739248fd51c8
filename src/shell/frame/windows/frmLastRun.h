// What the last run did: its lines and a list of its tickers. It stands beside the work and blocks nothing.
#pragma once

#include <QDialog>

#include "shell/run_report.h"

namespace brantlow {

class frmLastRun final : public QDialog {
  public:
    frmLastRun(const RunReport& report, QWidget* parent);
};

}  // namespace brantlow
