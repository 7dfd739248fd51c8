// The settings screens of the main frame, and the schedule of the daily run that they lead to.
#include <QCoreApplication>

#include "acquire/daily_start.h"
#include "acquire/windows/frmSchedule.h"
#include "base/windows/display_text.h"
#include "screens/windows/frmApplicationSettings.h"
#include "shell/windows/frmMain.h"
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

QDialog* frmMain::OpenSchedulerWizard(QWidget* over) {
    const Path program = PathOf(QCoreApplication::applicationFilePath());
    auto* schedule =
        new frmSchedule(session_, ThisScheduleSystem(), DesktopProgram(program, session_.AppPath), over);
    connect(schedule, &QDialog::finished, schedule, &QObject::deleteLater);
    schedule->open();
    return schedule;
}

}  // namespace brantlow
