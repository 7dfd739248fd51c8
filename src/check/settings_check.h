// Looks through the settings files: what each line holds against what its row says (shell/settings/lines.h),
// the lists behind the numbered lines, and the ten conditions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// `bytes` are those of the file in the data folder of `appPath`.
std::vector<Finding> CheckSettingsText(SettingsFile file, const Path& appPath, std::string_view bytes);

// True for the kinds of findings that MendSettingsText may repair.
bool IsSettingsMendable(FindingKind kind);
// The file's text with each numbered line that says what it cannot say replaced by what the program takes it
// for.
std::string MendSettingsText(SettingsFile file, std::string_view bytes);

}  // namespace brantlow
