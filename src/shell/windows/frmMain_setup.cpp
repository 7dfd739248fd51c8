// The main frame's windows in which the program is set up.
#include "screens/windows/frmSetupWizard.h"
#include "screens/windows/frmStockSelectorSettings.h"
#include "shell/windows/frmMain.h"

namespace brantlow {

void frmMain::StockSelectorSettings() {
    auto* settings = new frmStockSelectorSettings(session_, this);
    connect(settings, &QDialog::finished, settings, &QObject::deleteLater);
    settings->open();
}

void frmMain::SetupWizard() {
    auto* wizard = new frmSetupWizard(session_, hosts_, this);
    connect(wizard, &QDialog::finished, wizard, &QObject::deleteLater);
    wizard->open();
}

}  // namespace brantlow
