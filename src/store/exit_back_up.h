// The back-up that runs when the user leaves the program, once a week or once a month by the data settings.
#pragma once

#include <optional>
#include <string_view>
#include <system_error>

#include "base/dates.h"
#include "base/files.h"
#include "shell/person.h"
#include "shell/settings/settings_tables.h"
#include "store/folder_copy.h"

namespace brantlow {

// What the user is told when a back-up is due and the settings name no folder for it.
inline constexpr std::string_view kNoApplicationBackUpFolder =
    "The application files could not be backed up: no folder is chosen for the back-up. Go to Settings, "
    "Application to choose one.";
inline constexpr std::string_view kNoDatabaseBackUpFolder =
    "The quote database could not be backed up: no folder is chosen for the back-up. Go to Settings, "
    "Application to choose one.";

struct ExitBackUp {
    // Each is there when its step ran, however many files could be copied.
    std::optional<FolderCopy> applicationFiles;
    std::optional<FolderCopy> quoteDatabase;
    Failure settingsError;  // when the date of the back-up could not be written

    bool Ran() const { return applicationFiles || quoteDatabase; }
};

// Whether the interval of line 1 ("Weekly", "Monthly": 7 and 30 days) has passed since the date of line 13. A
// line 13 without a date lies long back.
bool BackUpIsDue(const SettingsTables& settings, const Date& today);

// Copies the files of Data/ to the folder of line 3 when line 2 is "True", and those of the quote database to
// the folder of line 5 when line 4 is "True". When either step ran, line 13 becomes today and the settings
// file is written. A file that cannot be copied is passed over in silence.
ExitBackUp BackUpAtExit(const Path& appPath, const Date& today, SettingsTables& settings, Person& person);

}  // namespace brantlow
