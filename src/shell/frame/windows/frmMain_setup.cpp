// The main frame's windows in which the program is set up.
#include "acquire/schedule/daily_start.h"
#include "acquire/schedule/windows/frmSchedule.h"
#include "screens/windows/frmApplicationSettings.h"
#include "screens/windows/frmSetupWizard.h"
#include "screens/windows/frmStockSelectorSettings.h"
#include "shell/app_folder.h"
#include "shell/frame/windows/frmMain.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

void frmMain::ApplicationSettingsScreen() {
    auto* dialog = new frmApplicationSettings(session_, hosts_, this);
    connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    connect(dialog, &frmApplicationSettings::ColumnsChanged, this, [this] {
        if (quoteForm_) quoteForm_->RebuildColumns();
    });
    connect(dialog, &frmApplicationSettings::ScheduleAsked, this, [this, dialog] {
        connect(OpenSchedulerWizard(dialog), &QDialog::finished, dialog,
                &frmApplicationSettings::ShowDailyRun);
    });
    dialog->open();
}

void frmMain::StockSelectorSettings() {
    auto* settings = new frmStockSelectorSettings(session_, this);
    connect(settings, &QDialog::finished, settings, &QObject::deleteLater);
    settings->open();
}

void frmMain::SetupWizard() {
    auto* wizard = new frmSetupWizard(session_, hosts_, this);
    connect(wizard, &QDialog::finished, wizard, &QObject::deleteLater);
    connect(wizard, &frmSetupWizard::ScheduleAsked, this, [this, wizard] { OpenSchedulerWizard(wizard); });
    wizard->open();
}

QDialog* frmMain::OpenSchedulerWizard(QWidget* asking) {
    auto* schedule =
        new frmSchedule(session_, ThisScheduleSystem(),
                        DesktopProgram(CurrentStartPlaces().executable, session_.AppPath), asking);
    connect(schedule, &QDialog::finished, schedule, &QObject::deleteLater);
    schedule->open();
    return schedule;
}

}  // namespace brantlow
