// The recent-file list: entries 1 to 4 of MruSettings, newest first, an empty text for a free entry. Opening
// or saving an end-of-day table moves its name to the top.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "shell/settings/lines.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

inline constexpr std::size_t kRecentFileCount = LineCountOf(SettingsFile::Mru);

// The names of the entries, relative to Data/.
using RecentFileNames = std::array<std::string, kRecentFileCount>;
RecentFileNames RecentFiles(const SettingsTables& settings);

// Puts `caption`, the file's name relative to Data/, on top. A name already in the list leaves its old place
// and those above it move down; a new one pushes the oldest out. An empty caption changes nothing.
void UpdateRecentFiles(std::string_view caption, SettingsTable& mruSettings);

}  // namespace brantlow
