// From the controls of the settings dialog to settings lines: what Apply and Default of a tab write.
#pragma once

#include "base/dates.h"
#include "base/files.h"
#include "screens/settings_controls.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// What surrounds the controls.
struct LineSources {
    const SettingsTables& settings;  // in force
    const Path& appPath;
    Date today;
};

// The tables in force with the lines of one tab as its controls have them. QuoteHost stands for the market.
SettingsTables TablesWithControls(SettingsTab tab, const SettingsControls& controls, const LineSources& from);

// The tables in force with the lines of one tab at their defaults. What the defaults keep comes from the
// controls or from the tables in force, line by line as LineReset says.
SettingsTables TablesWithDefaults(SettingsTab tab, const SettingsControls& controls, const LineSources& from);

}  // namespace brantlow
