// The one screen for all options of the program: five tabs over screens/application_settings.h. Apply and
// Default act on the tab on show. Opened by the Settings menu.
#pragma once

#include <QDialog>

#include "screens/application_settings.h"
#include "screens/windows/settings_binder.h"

class QLabel;
class QTabWidget;

namespace brantlow {

class frmApplicationSettings final : public QDialog {
    Q_OBJECT
  public:
    // All outlive the window. All tabs are filled from the files.
    frmApplicationSettings(Session& session, const Hosts& hosts, QWidget* parent);

    // The schedule may have set another time.
    void ShowDailyRun();

  Q_SIGNALS:
    // The open quote table is to show the columns chosen.
    void ColumnsChanged();
    // The daily run was turned on, or its schedule is to be looked at.
    void ScheduleAsked();
    // The list of live sources is to be opened.
    void SourcesAsked();
    // The settings of the alarms' mail are to be opened.
    void MailAsked();

  private:
    void Form_Load();
    void AddPages();
    QWidget* ButtonRow();
    SettingsTab TabOnShow() const;
    void Command21_Click();
    void Command23_Click();
    void Tell(const SettingsOutcome& outcome, const QString& done);
    void FitToScreen();

    Session& session_;
    ApplicationSettings settings_;
    SettingsBinder binder_;
    QTabWidget* TabStrip1;
    QLabel* outcome_;
};

}  // namespace brantlow
