#include "store/exit_back_up.h"

#include "shell/settings/lines.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr int kDaysOfWeek = 7;
constexpr int kDaysOfMonth = 30;

struct Step {
    FlagLine isChosen;
    TextLine folder;
    std::string_view noFolder;
    double done;  // steps before it
};

constexpr Step kApplicationStep = {kBacksUpApplication, kApplicationBackUpFolder, kNoApplicationBackUpFolder,
                                   0};
constexpr Step kDatabaseStep = {kBacksUpDatabase, kDatabaseBackUpFolder, kNoDatabaseBackUpFolder, 1};
constexpr double kSteps = 2;

std::optional<int> IntervalDays(BackUpFrequency frequency) {
    switch (frequency) {
        case BackUpFrequency::Weekly:
            return kDaysOfWeek;
        case BackUpFrequency::Monthly:
            return kDaysOfMonth;
        case BackUpFrequency::Manually:
            break;
    }
    return std::nullopt;
}

// Both steps share the progress bar, half of it each.
std::optional<FolderCopy> RunStep(const Step& step, const Path& from, const Path& appPath,
                                  const SettingsTables& settings, Person& person) {
    if (!Get(settings, step.isChosen)) return std::nullopt;
    const std::string& folder = Get(settings, step.folder);
    if (folder.empty()) {
        person.Say(step.noFolder);
        return std::nullopt;
    }
    const auto proceed = [&](double share) {
        person.ShowProgress((step.done + share) / kSteps);
        person.PumpEvents();
        return true;
    };
    const auto commit = [&](FileChange& files) {
        Failure fault;
        person.DoBeside([&] { fault = files.Commit(); });
        return fault;
    };
    FileChange change({appPath, {}}, "Back Up", ChangeKeeps::Nothing);
    return CopyFolderFiles(from, FolderOfSetting(appPath, folder), change, CopyGroups::Several,
                           {proceed, commit});
}

}  // namespace

bool BackUpIsDue(const SettingsTables& settings, const Date& today) {
    const auto days = IntervalDays(Get(settings, kBackUpFrequency));
    if (!days) return false;
    const auto last = Get(settings, kLastBackUp);
    return !last || today >= AddDays(*last, *days);
}

ExitBackUp BackUpAtExit(const Path& appPath, const Date& today, SettingsTables& settings, Person& person) {
    ExitBackUp backUp;
    if (!BackUpIsDue(settings, today)) return backUp;
    backUp.applicationFiles = RunStep(kApplicationStep, appPath / "Data", appPath, settings, person);
    backUp.quoteDatabase = RunStep(kDatabaseStep, Path(settings.QuoteFolder), appPath, settings, person);
    if (!backUp.Ran()) return backUp;
    SettingsTables draft = settings;
    Set(draft, kLastBackUp, today);
    backUp.settingsError = ApplySettings(draft, SettingsFile::Data, OrdinaryChange(appPath), settings);
    return backUp;
}

}  // namespace brantlow
