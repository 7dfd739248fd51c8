// From settings lines to the controls of the settings dialog.
#pragma once

#include <string_view>

#include "acquire/web/hosts.h"
#include "screens/settings_controls.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// Every control with what it shows under `settings`. A line that a control cannot show reads as what the
// program makes of it: a switch with an unknown word is off, a number that is none has its default.
SettingsControls LoadControls(const SettingsTables& settings, const Hosts& hosts);

// Enables each control by kEnablingRows.
void ApplyEnabling(SettingsControls& controls);

// The option shown for this text of its line; null where none is.
const OptionRow* OptionFor(const LineRow& line, std::string_view text);

// The row of this option, or null.
const OptionRow* FindOption(std::string_view control);

// Turns the option on and the others of its line off.
void TurnOn(const OptionRow& option, SettingsControls& controls);

// Turns the options of the years off.
void ChooseNoYears(SettingsControls& controls);

// What choosing the option puts into other controls, by kPresetRows.
void ApplyPresets(std::string_view option, SettingsControls& controls);

}  // namespace brantlow
