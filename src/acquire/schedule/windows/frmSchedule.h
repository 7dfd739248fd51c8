// The schedule window: days and time of the daily update, and the start of the program that the system makes
// a little before. It shows what is installed and can remove it. The settings screens open it when the daily
// update is turned on.
#pragma once

#include <QDialog>
#include <array>

#include "acquire/schedule/daily_start.h"
#include "shell/session.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QTimeEdit;

namespace brantlow {

class frmSchedule final : public QDialog {
    Q_OBJECT
  public:
    // `session` outlives the window. Days and time stand as they are installed, else Monday to Friday at the
    // time of the settings.
    frmSchedule(Session& session, ScheduleSystem system, StartedProgram started, QWidget* parent);

    // The days and the time that the window shows.
    WeeklyTime Chosen() const;

  private:
    QWidget* DaysBox();
    QLayout* TimeRow();
    QWidget* InstalledBox();
    QWidget* Buttons();
    void ShowStart();
    void ShowInstalled();
    void Install();
    void Remove();

    Session& session_;
    ScheduleSystem system_;
    StartedProgram started_;
    std::array<QCheckBox*, kDaysInWeek> days_{};
    QTimeEdit* time_;
    QLabel* start_;
    QLabel* installed_;
    QPushButton* remove_;
};

}  // namespace brantlow
