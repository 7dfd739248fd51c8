// The five pages of the settings dialog: which control stands where.
#pragma once

#include "screens/settings_controls.h"

class QWidget;

namespace brantlow {

class SettingsBinder;

// The page of a tab with its controls, made by `binder`.
QWidget* SettingsPage(SettingsTab tab, SettingsBinder& binder);

// Puts the columns of a page one below another, the outermost first, as far as `width` pixels ask for it:
// what is scrolled is scrolled in one direction.
void FitColumns(QWidget& page, int width);

// The name of the button on the data page that opens the schedule of the daily run.
inline constexpr const char* kScheduleButton = "CommandSchedule";
// The name of the one on the network page that opens the list of live sources.
inline constexpr const char* kSourcesButton = "CommandSources";
// The one beside the alerts that opens the settings of the alarms' mail.
inline constexpr const char* kMailButton = "CommandMail";

}  // namespace brantlow
