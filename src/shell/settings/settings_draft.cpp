#include "shell/settings/settings_draft.h"

#include <algorithm>

namespace brantlow {

namespace {

bool IsSettingsFile(const Path& file) {
    return std::any_of(kSettingsFiles.begin(), kSettingsFiles.end(), [&](const SettingsFileForm& form) {
        return form.fileName == file.filename().native();
    });
}

}  // namespace

SettingsChange OrdinaryChange(const Path& appPath) {
    return {{.appPath = appPath, .when = {}}, "Settings", ChangeKeeps::UntilDone};
}

FileFault ApplySettings(const SettingsTables& draft, std::span<const SettingsFile> files,
                        const SettingsChange& change, SettingsTables& inForce) {
    const Path& appPath = change.place.appPath;
    FileChange writing(change.place, change.what, change.keeps);
    for (const SettingsFile file : files) {
        const Path path = SettingsFilePath(file, appPath);
        // What could not be read is not known: writing the draft would put nothing in its place.
        if (const auto& error = draft.ReadErrors[static_cast<std::size_t>(file)]) return {path, error};
        if (FileFault fault = writing.Write(path, SettingsFileText(file, draft))) return fault;
    }
    if (FileFault fault = writing.Commit()) return fault;
    for (const SettingsFile file : files) LoadSettingsFile(file, appPath, inForce);
    return {};
}

std::string CannotBeSaved(const FileFault& fault) {
    if (!fault) return {};
    const Path name = IsSettingsFile(fault.file) ? fault.file.filename() : fault.file;
    return name.string() + ": cannot be saved (" + fault.code.message() + ")";
}

}  // namespace brantlow
