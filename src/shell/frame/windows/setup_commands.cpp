#include "shell/frame/windows/setup_commands.h"

#include <QMainWindow>

#include "acquire/feeds/windows/frmSources.h"
#include "acquire/schedule/daily_start.h"
#include "acquire/schedule/windows/frmSchedule.h"
#include "screens/windows/frmApplicationSettings.h"
#include "screens/windows/frmSetupWizard.h"
#include "screens/windows/frmStockSelectorSettings.h"
#include "shell/app_folder.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

CommandRows SetupCommands::Rows() {
    static constexpr SubjectRow<SetupCommands> kRows[] = {
        {"mnuSettingsApplication", &SetupCommands::ApplicationSettingsScreen},
        {"mnuSettingsStockSelector", &SetupCommands::StockSelectorSettings},
        {"mnuSettingsSources", &SetupCommands::QuoteSources},
        {"SetupWizard", &SetupCommands::SetupWizard},
    };
    return RowsOf(*this, kRows);
}

void SetupCommands::ApplicationSettingsScreen() {
    auto* dialog = new frmApplicationSettings(frame_.session, frame_.hosts, &frame_.window);
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    QObject::connect(dialog, &frmApplicationSettings::ColumnsChanged, &frame_.window, [this] {
        if (frmQuoteGrid* const form = frame_.table.form()) form->RebuildColumns();
    });
    QObject::connect(dialog, &frmApplicationSettings::ScheduleAsked, &frame_.window, [this, dialog] {
        QObject::connect(OpenSchedulerWizard(dialog), &QDialog::finished, dialog,
                         &frmApplicationSettings::ShowDailyRun);
    });
    QObject::connect(dialog, &frmApplicationSettings::SourcesAsked, &frame_.window,
                     [this, dialog] { OpenSources(dialog); });
    QObject::connect(dialog, &frmApplicationSettings::MailAsked, &frame_.window,
                     [this, dialog] { frame_.openAlarmMail(dialog); });
    dialog->open();
}

void SetupCommands::QuoteSources() {
    OpenSources(&frame_.window);
}

void SetupCommands::OpenSources(QWidget* asking) {
    auto* sources = new frmSources(frame_.session, frame_.web, asking);
    QObject::connect(sources, &QDialog::finished, sources, &QObject::deleteLater);
    sources->open();
}

void SetupCommands::StockSelectorSettings() {
    const frmQuoteGrid* const table = frame_.table.form();
    const bool counts = table && KindOf(frame_.session.CurrentFile) == FileKind::Ddq;
    auto* settings = new frmStockSelectorSettings(
        frame_.session, &frame_.window, counts ? table->Table().Tickers() : std::vector<std::string>());
    QObject::connect(settings, &QDialog::finished, settings, &QObject::deleteLater);
    settings->open();
}

void SetupCommands::SetupWizard() {
    auto* wizard = new frmSetupWizard(frame_.session, frame_.hosts, &frame_.window);
    QObject::connect(wizard, &QDialog::finished, wizard, &QObject::deleteLater);
    QObject::connect(wizard, &frmSetupWizard::ScheduleAsked, &frame_.window,
                     [this, wizard] { OpenSchedulerWizard(wizard); });
    QObject::connect(wizard, &frmSetupWizard::BeginAsked, &frame_.window,
                     [this](StartWay way) { frame_.begin(way); });
    wizard->open();
}

QDialog* SetupCommands::OpenSchedulerWizard(QWidget* asking) {
    auto* schedule =
        new frmSchedule(frame_.session, ThisScheduleSystem(),
                        DesktopProgram(CurrentStartPlaces().executable, frame_.session.AppPath), asking);
    QObject::connect(schedule, &QDialog::finished, schedule, &QObject::deleteLater);
    schedule->open();
    return schedule;
}

}  // namespace brantlow
