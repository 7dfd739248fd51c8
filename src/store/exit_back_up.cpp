#include "store/exit_back_up.h"

#include <array>

#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::size_t kFrequencyLine = 1;
constexpr std::size_t kBackUpDateLine = 13;
constexpr std::string_view kChosen = "True";

struct Frequency {
    std::string_view word;
    int days;
};

// "Manually", and any other word, has no interval.
constexpr std::array<Frequency, 2> kFrequencies = {{{"Weekly", 7}, {"Monthly", 30}}};

struct Step {
    std::size_t switchLine;
    std::size_t folderLine;
    std::string_view noFolder;
    double done;  // steps before it
};

constexpr Step kApplicationStep = {2, 3, kNoApplicationBackUpFolder, 0};
constexpr Step kDatabaseStep = {4, 5, kNoDatabaseBackUpFolder, 1};
constexpr double kSteps = 2;

std::optional<int> IntervalDays(const std::string& word) {
    for (const Frequency& row : kFrequencies) {
        if (row.word == word) return row.days;
    }
    return std::nullopt;
}

// Both steps share the progress bar, half of it each.
std::optional<FolderCopy> RunStep(const Step& step, const Path& from, const Path& appPath,
                                  const SettingsTable& DataSettings, Person& person) {
    if (DataSettings.Text(step.switchLine) != kChosen) return std::nullopt;
    const std::string& folder = DataSettings.Text(step.folderLine);
    if (folder.empty()) {
        person.Say(step.noFolder);
        return std::nullopt;
    }
    const auto progress = [&](double share) { person.ShowProgress((step.done + share) / kSteps); };
    return CopyFolderFiles(from, FolderOfSetting(appPath, folder), progress);
}

}  // namespace

bool BackUpIsDue(const SettingsTable& DataSettings, const Date& today) {
    const auto days = IntervalDays(DataSettings.Text(kFrequencyLine));
    if (!days) return false;
    const auto last = ParseDate(DataSettings.Text(kBackUpDateLine));
    return !last || today >= AddDays(*last, *days);
}

ExitBackUp BackUpAtExit(const Path& appPath, const Date& today, SettingsTables& settings, Person& person) {
    ExitBackUp backUp;
    SettingsTable& DataSettings = settings.DataSettings;
    if (!BackUpIsDue(DataSettings, today)) return backUp;
    backUp.applicationFiles = RunStep(kApplicationStep, appPath / "Data", appPath, DataSettings, person);
    backUp.quoteDatabase = RunStep(kDatabaseStep, Path(settings.QuoteFolder), appPath, DataSettings, person);
    if (!backUp.Ran()) return backUp;
    DataSettings.Set(kBackUpDateLine, Value::OfDate(today));
    backUp.settingsError = WriteSettingsFile(SettingsFile::Data, appPath, settings);
    return backUp;
}

}  // namespace brantlow
