// Which settings files a piece of work goes by. It is refused where one of them is there and cannot be read:
// what it would do then is not what the person has set. The batch tool's commands and the main frame's runs
// name theirs.
#pragma once

#include <span>
#include <string>

#include "shell/settings/settings_files.h"

namespace brantlow {

using SettingsNeeds = std::span<const SettingsFile>;

inline constexpr SettingsFile kAnySettings[] = {
    SettingsFile::Columns, SettingsFile::Data, SettingsFile::Graph, SettingsFile::Selector,
    SettingsFile::Mru,     SettingsFile::Net,  SettingsFile::Lang,  SettingsFile::ImEx,
    SettingsFile::Own,     SettingsFile::Src,  SettingsFile::Mail};
inline constexpr SettingsFile kDatabaseSettings[] = {SettingsFile::Data};
inline constexpr SettingsFile kChangeSettings[] = {SettingsFile::Data, SettingsFile::Own};
inline constexpr SettingsFile kConditionSettings[] = {SettingsFile::Data, SettingsFile::Selector};
inline constexpr SettingsFile kSelectorRunSettings[] = {SettingsFile::Data, SettingsFile::Selector,
                                                        SettingsFile::Own};
inline constexpr SettingsFile kChartSettings[] = {SettingsFile::Data, SettingsFile::Graph,
                                                  SettingsFile::Selector};
inline constexpr SettingsFile kExchangeSettings[] = {SettingsFile::Columns, SettingsFile::Data,
                                                     SettingsFile::ImEx, SettingsFile::Own};
inline constexpr SettingsFile kDownloadSettings[] = {
    SettingsFile::Columns, SettingsFile::Data, SettingsFile::Net, SettingsFile::Lang,
    SettingsFile::Own,     SettingsFile::Src,  SettingsFile::Mail};
inline constexpr SettingsFile kMailSettings[] = {SettingsFile::Mail};
inline constexpr SettingsFile kPageSettings[] = {SettingsFile::Net, SettingsFile::Lang};

// The sentence for the first of these files that could not be read when it was last loaded; empty where all
// could.
std::string FirstUnreadable(SettingsNeeds needs, const Path& appPath, const SettingsTables& settings);

// The same after another look at those that could not be read: a file that has been mended meanwhile counts.
std::string StillUnreadable(SettingsNeeds needs, const Path& appPath, SettingsTables& settings);

}  // namespace brantlow
