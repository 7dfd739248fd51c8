// The windows in which the program is set up: the settings, the selector's conditions, the wizard, the
// schedule, the live sources.
#pragma once

#include "shell/frame/windows/frame_hands.h"

class QDialog;

namespace brantlow {

class SetupCommands final {
  public:
    explicit SetupCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

  private:
    void ApplicationSettingsScreen();
    void StockSelectorSettings();
    void SetupWizard();
    void QuoteSources();
    // Opens the list of live sources over the window that asked for it.
    void OpenSources(QWidget* asking);
    // Opens the schedule of the daily run over the window that turned it on.
    QDialog* OpenSchedulerWizard(QWidget* asking);

    const FrameHands& frame_;
};

}  // namespace brantlow
