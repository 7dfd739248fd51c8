// Changing settings: a draft beside the tables in force, and one act that puts it into the files and then
// into force. All who change a setting while the program runs go this way:
//
//     SettingsTables draft = settings;
//     Set(draft, kHistoryYears, 5);
//     if (const FileFault fault = ApplySettings(draft, kFiles, OrdinaryChange(appPath), settings)) ...
//
// Until then the draft changes nothing. A file that cannot be written, or could not be read, leaves all files
// and the tables in force as they were.
#pragma once

#include <span>
#include <string>

#include "base/file_change.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

// Where the change is kept until it is done or undone, and what it is called.
struct SettingsChange {
    ChangePlace place;
    std::string what;
    ChangeKeeps keeps = ChangeKeeps::ForUndo;
};
// One that an entry of the old values takes back as easily.
SettingsChange OrdinaryChange(const Path& appPath);

// Writes these files from the draft, all or none, and reads them back into `inForce` with all that is derived
// from them.
FileFault ApplySettings(const SettingsTables& draft, std::span<const SettingsFile> files,
                        const SettingsChange& change, SettingsTables& inForce);
inline FileFault ApplySettings(const SettingsTables& draft, SettingsFile file, const SettingsChange& change,
                               SettingsTables& inForce) {
    return ApplySettings(draft, std::span(&file, 1), change, inForce);
}

// What a person is told of a fault: "VTRNETset.ini: cannot be saved (REASON)", with the whole path of a file
// that is no settings file. Empty without one.
std::string CannotBeSaved(const FileFault& fault);

}  // namespace brantlow
