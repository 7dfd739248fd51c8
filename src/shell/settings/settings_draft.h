// Changing settings: a draft beside the tables in force, and one act that puts it into the files and then
// into force. All who change a setting while the program runs go this way:
//
//     SettingsTables draft = settings;
//     Set(draft, kHistoryYears, 5);
//     if (const Failure fault = ApplySettings(draft, kFiles, OrdinaryChange(appPath), settings)) ...
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
// from them. A failure names a settings file without its folder, as everybody knows it: "VTRNETset.ini:
// cannot be saved (REASON)".
Failure ApplySettings(const SettingsTables& draft, std::span<const SettingsFile> files,
                      const SettingsChange& change, SettingsTables& inForce);
inline Failure ApplySettings(const SettingsTables& draft, SettingsFile file, const SettingsChange& change,
                             SettingsTables& inForce) {
    return ApplySettings(draft, std::span(&file, 1), change, inForce);
}

// The same with the text of a file, where it is made of something else than the tables.
Failure ApplySettingsText(SettingsFile file, std::string_view text, const SettingsChange& change,
                          SettingsTables& inForce);

}  // namespace brantlow
