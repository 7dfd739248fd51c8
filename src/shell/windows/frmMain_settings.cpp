// The settings screens of the main frame.
#include "screens/windows/frmApplicationSettings.h"
#include "shell/windows/frmMain.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

void frmMain::ApplicationSettingsScreen() {
    auto* dialog = new frmApplicationSettings(session_, hosts_, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &frmApplicationSettings::ColumnsChanged, this, [this] {
        if (quoteForm_) quoteForm_->RebuildColumns();
    });
    dialog->open();
}

}  // namespace brantlow
