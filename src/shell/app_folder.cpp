#include "shell/app_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "shell/file_kind.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace fs = std::filesystem;

namespace {

constexpr const char* kData = "Data";
// Data/ while it is being filled.
constexpr const char* kDataInWork = "Data.new";
constexpr std::array<const char*, 5> kFolders = {"Quotes/EOD", "Images", "Help", "Back Up", "Back Up/Data"};
// build/<preset>/bin/ lies three folders below the folder that holds assets/.
constexpr int kFoldersAbove = 3;

bool IsFolder(const Path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

Path HomeFolder() {
    const std::string home = EnvironmentText("HOME");
    if (!home.empty()) return home;
    const passwd* entry = ::getpwuid(::getuid());
    return entry != nullptr && entry->pw_dir != nullptr ? Path(entry->pw_dir) : Path("/");
}

// Absolute, without "." or "..", without a closing separator.
Path Tidy(const Path& path) {
    std::error_code error;
    const Path absolute = fs::absolute(path, error).lexically_normal();
    return absolute.has_filename() || absolute == absolute.root_path() ? absolute : absolute.parent_path();
}

std::error_code CopyMissingFile(const Path& from, const Path& to) {
    std::error_code error;
    // A dangling link is somebody's, too.
    if (fs::exists(fs::symlink_status(to, error))) return {};
    const ReadResult shipped = ReadWholeFile(from);
    if (shipped.outcome != ReadOutcome::Done) {
        return shipped.error ? shipped.error : std::make_error_code(std::errc::no_such_file_or_directory);
    }
    return WriteWholeFile(to, shipped.bytes);
}

// A file that only a new folder gets.
bool IsForNewFolders(const Path& file) {
    return std::any_of(kSettingsFiles.begin(), kSettingsFiles.end(), [&](const SettingsFileForm& form) {
        return form.shippedTo == ShippedTo::NewFolders && form.fileName == file.filename().native();
    });
}

// A Data/ that somebody has worked with. One without any settings file is as good as new.
bool HoldsSettings(const Path& data) {
    return std::any_of(kSettingsFiles.begin(), kSettingsFiles.end(), [&](const SettingsFileForm& form) {
        std::error_code error;
        return fs::exists(fs::symlink_status(data / form.fileName, error));
    });
}

// A folder that cannot be listed may hold some.
bool HoldsTables(const Path& data) {
    std::error_code error;
    for (auto it = fs::directory_iterator(data, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        const FileKind kind = KindOf(it->path().filename().native());
        // The template of new tables is shipped.
        if (kind != FileKind::None && kind != FileKind::Db) return true;
    }
    return static_cast<bool>(error);
}

// Copies the files below `from` that `to` lacks, making folders as needed.
std::error_code CopyMissingFiles(const Path& from, const Path& to,
                                 ShippedTo shippedTo = ShippedTo::NewFolders) {
    std::error_code error;
    fs::create_directories(to, error);
    if (error || !IsFolder(from)) return error;
    for (auto it = fs::recursive_directory_iterator(from, error);
         !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        const Path target = to / it->path().lexically_relative(from);
        std::error_code one;
        if (it->is_directory(one)) {
            fs::create_directories(target, one);
        } else if (shippedTo == ShippedTo::NewFolders || !IsForNewFolders(target)) {
            one = CopyMissingFile(it->path(), target);
        }
        if (one) return one;
    }
    return error;
}

// Fills a Data/ that is there. One as good as new is marked by the other folder until it is whole.
std::error_code FillData(const Path& shipped, const Path& data, const Path& inWork) {
    if (HoldsSettings(data) && !IsFolder(inWork))
        return CopyMissingFiles(shipped, data, ShippedTo::EveryFolder);
    std::error_code error;
    fs::create_directories(inWork, error);
    if (!error) error = CopyMissingFiles(shipped, data, ShippedTo::NewFolders);
    if (!error) fs::remove_all(inWork, error);
    return error;
}

std::error_code MakeData(const Path& assets, const Path& appPath) {
    const Path data = appPath / kData;
    if (IsFolder(data)) return FillData(assets / kData, data, appPath / kDataInWork);
    if (const auto error = CopyMissingFiles(assets / kData, appPath / kDataInWork)) return error;
    std::error_code error;
    fs::rename(appPath / kDataInWork, data, error);
    return error;
}

}  // namespace

std::string EnvironmentText(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string{} : std::string(value);
}

StartPlaces CurrentStartPlaces() {
    std::error_code error;
    return {EnvironmentText("BRANTLOW_HOME"), HomeFolder(), fs::read_symlink("/proc/self/exe", error)};
}

Path ResolveAppPath(const StartPlaces& places) {
    if (!places.brantlowHome.empty()) return Tidy(places.brantlowHome);
    const Path folder = places.executable.parent_path();
    if (!folder.empty() && IsFolder(folder / kData)) return Tidy(folder);
    return Tidy(places.home / "Brantlow");
}

std::optional<Path> FindAssets(const Path& executable) {
    const Path own = Tidy(executable).parent_path();
    Path folder = own;
    for (int i = 0; i <= kFoldersAbove; ++i, folder = folder.parent_path()) {
        if (IsFolder(folder / "assets" / kData)) return folder / "assets";
    }
    const Path installed = own.parent_path() / "share" / "brantlow";
    if (IsFolder(installed / kData)) return installed;
    return std::nullopt;
}

bool NeedsMaking(const Path& appPath) {
    const Path data = appPath / kData;
    const bool isWhole = IsFolder(data) && !IsFolder(appPath / kDataInWork);
    return !isWhole || (!HoldsSettings(data) && !HoldsTables(data));
}

std::error_code MakeAppFolder(const Path& assets, const Path& appPath) {
    for (const char* folder : kFolders) {
        if (const auto error = CopyMissingFiles(assets / folder, appPath / folder)) return error;
    }
    return MakeData(assets, appPath);
}

}  // namespace brantlow
