// The warning of the low-memory watch: what to do now, and how to have more memory the next time. The run
// that met it goes to its end behind the window.
#pragma once

#include <QDialog>

#include "shell/run_control.h"

namespace brantlow {

class frmLowMemory final : public QDialog {
    Q_OBJECT
  public:
    // `run` outlives the window; its button writes the stop word.
    frmLowMemory(RunControl& run, QWidget* frame);

  private:
    void Continue();

    RunControl& run_;
};

}  // namespace brantlow
