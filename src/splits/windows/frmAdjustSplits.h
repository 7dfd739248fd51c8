// Tells that histories are being adjusted for splits. The main frame shows it while the split calendar is
// read and worked off, and takes it away afterwards; nobody has to answer it.
#pragma once

#include <QDialog>

namespace brantlow {

class frmAdjustSplits final : public QDialog {
    Q_OBJECT
  public:
    // Stands over the middle of `frame`, readable though the frame is disabled.
    explicit frmAdjustSplits(QWidget* frame);

    // Escape is no way out: the window goes with the work that it tells of.
    void reject() override {}
};

}  // namespace brantlow
