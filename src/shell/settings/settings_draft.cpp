#include "shell/settings/settings_draft.h"

#include <algorithm>

namespace brantlow {

namespace {

Failure Named(Failure failure) {
    const bool isSettingsFile = std::any_of(
        kSettingsFiles.begin(), kSettingsFiles.end(),
        [&](const SettingsFileForm& form) { return form.fileName == failure.file.filename().native(); });
    if (isSettingsFile) failure.file = failure.file.filename();
    return failure;
}

// Puts the prepared files in place and then into force.
Failure Commit(Failure prepared, FileChange& writing, std::span<const SettingsFile> files,
               const Path& appPath, SettingsTables& inForce) {
    Failure fault = prepared ? std::move(prepared) : writing.Commit();
    if (fault) return Named(std::move(fault));
    for (const SettingsFile file : files) LoadSettingsFile(file, appPath, inForce);
    return {};
}

}  // namespace

SettingsChange OrdinaryChange(const Path& appPath) {
    return {{.appPath = appPath, .when = {}}, "Settings", ChangeKeeps::UntilDone};
}

Failure ApplySettings(const SettingsTables& draft, std::span<const SettingsFile> files,
                      const SettingsChange& change, SettingsTables& inForce) {
    FileChange writing(change.place, change.what, change.keeps);
    Failure fault;
    for (const SettingsFile file : files)
        KeepFirst(fault, PrepareSettingsFile(file, change.place.appPath, draft, writing));
    return Commit(std::move(fault), writing, files, change.place.appPath, inForce);
}

Failure ApplySettingsText(SettingsFile file, std::string_view text, const SettingsChange& change,
                          SettingsTables& inForce) {
    FileChange writing(change.place, change.what, change.keeps);
    Failure fault = PrepareSettingsText(file, text, change.place.appPath, inForce, writing);
    return Commit(std::move(fault), writing, std::span(&file, 1), change.place.appPath, inForce);
}

}  // namespace brantlow
