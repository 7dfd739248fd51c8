#include "shell/session_change.h"

#include <fmt/format.h>

#include "base/undo_store.h"
#include "shell/kept_folders.h"
#include "shell/settings/choices.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

ChangePlace ChangePlaceOf(const Session& session) {
    const Date today = session.clock.Today();
    const auto seconds = static_cast<int>(session.clock.SecondsSinceMidnight());
    constexpr int kSecondsAnHour = 3600;
    constexpr int kSixty = 60;
    ChangePlace place;
    place.appPath = session.AppPath;
    place.limits = UndoLimitsOf(session.settings);
    place.ownFolder = session.AppPath / kOwnDatabaseFolder;
    place.when = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", static_cast<int>(today.year()),
                             static_cast<unsigned>(today.month()), static_cast<unsigned>(today.day()),
                             seconds / kSecondsAnHour, seconds / kSixty % kSixty, seconds % kSixty);
    return place;
}

std::vector<Path> WrittenFolders(const Session& session) {
    const Path backUp = session.AppPath / "Back Up";
    std::vector<Path> folders = {session.AppPath, session.DataFolder(), session.settings.QuoteFolder, backUp,
                                 backUp / "Data"};
    for (const TextLine line : {kApplicationBackUpFolder, kDatabaseBackUpFolder, kExportFolder}) {
        const std::string& folder = Get(session.settings, line);
        if (!folder.empty()) folders.push_back(FolderOfSetting(session.AppPath, folder));
    }
    const std::string& copies = Get(session.settings, kApplicationBackUpFolder);
    for (const Path& copy : {backUp / "Data", FolderOfSetting(session.AppPath, copies)}) {
        for (const std::string_view kept : kKeptFolders) folders.push_back(copy / kept);
    }
    // A table may lie in a folder of its own below Data.
    std::error_code error;
    for (auto it = std::filesystem::recursive_directory_iterator(session.DataFolder(), error);
         !error && it != std::filesystem::recursive_directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (it->is_directory(typeError)) folders.push_back(it->path());
    }
    return folders;
}

Failure CommitBeside(Session& session, FileChange& change) {
    Failure fault;
    session.person.DoBeside([&] { fault = change.Commit(); });
    return fault;
}

Failure TakeBackBeside(Session& session, FileChange& change) {
    Failure fault;
    session.person.DoBeside([&] { fault = change.TakeBack(); });
    return fault;
}

FolderRecovery RecoverFolder(const Session& session) {
    FolderRecovery recovery;
    for (const InterruptedChange& change : RecoverChanges(ChangePlaceOf(session))) {
        recovery.sentences.push_back(InterruptedSentence(change));
        recovery.failed = recovery.failed || change.fault;
        (IsUndoing(change.what) ? recovery.tookUndoBack : recovery.tookChangeBack) = true;
    }
    const std::vector<Path> folders = WrittenFolders(session);
    SweepTemporaries(folders);
    DeleteOneFile(session.AppPath / kReplyName);
    return recovery;
}

}  // namespace brantlow
