#include "store/back_up.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/failure.h"
#include "shell/run_control.h"
#include "shell/session_change.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"

namespace brantlow {

namespace {

// What is backed up, the setting with its back-up folder, and what is said without one.
struct BackUpPlace {
    BackedUp what;
    TextLine folder;
    std::string_view noFolder;
};
constexpr std::array<BackUpPlace, 2> kBackUpPlaces = {{
    {BackedUp::ProgramFiles, kApplicationBackUpFolder, kNoProgramBackUpFolder},
    {BackedUp::QuoteDatabase, kDatabaseBackUpFolder, kNoQuoteBackUpFolder},
}};

Path LiveFolder(BackedUp what, const Session& session) {
    return what == BackedUp::ProgramFiles ? session.DataFolder() : Path(session.settings.QuoteFolder);
}

BackUpResult Refusal(std::string sentence) {
    BackUpResult result;
    result.refusal = std::move(sentence);
    return result;
}

std::string CopySentence(const FolderCopy& copy, const Path& to) {
    return FailedSentence("Copying " + Counted(copy.failed, "file", "files") + " to " + to.string(),
                          copy.error);
}

// The title of its question without the mark.
std::string ChangeName(const BackUpJob& job) {
    return std::string(job.title.substr(0, job.title.size() - 1));
}

}  // namespace

const BackUpJob& BackUpJobOf(BackedUp what, bool restores) {
    return *std::find_if(kBackUpJobs.begin(), kBackUpJobs.end(),
                         [&](const BackUpJob& job) { return job.what == what && job.restores == restores; });
}

BackUpResult RunBackUpJob(const BackUpJob& job, Session& session) {
    const BackUpPlace& place = kBackUpPlaces[job.what == BackedUp::ProgramFiles ? 0 : 1];
    const std::string& folder = Get(session.settings, place.folder);
    if (folder.empty()) return Refusal(std::string(place.noFolder));
    const Path backUp = FolderOfSetting(session.AppPath, folder);
    const Path live = LiveFolder(job.what, session);
    const Path& from = job.restores ? backUp : live;
    const Path& to = job.restores ? live : backUp;
    std::vector<std::string> names;
    if (const Failure failure = ListFiles(from, names)) return Refusal(Sentence(failure));
    if (names.empty()) return Refusal("There are no files in " + from.string() + ".");
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusCopying);
    BackUpResult result;
    FileChange change(ChangePlaceOf(session), ChangeName(job),
                      job.restores ? ChangeKeeps::ForUndo : ChangeKeeps::Nothing);
    const CopyGroups groups = job.restores ? CopyGroups::AllInOne : CopyGroups::Several;
    const auto proceed = [&](double share) {
        session.run.ProgressFraction = share;
        session.person.ShowProgress(share);
        session.person.PumpEvents();
        return !ShouldStop(session.run, session.person);
    };
    const auto commit = [&](FileChange& files) { return CommitBeside(session, files); };
    result.copy = CopyFolderFiles(from, to, change, groups, {proceed, commit});
    session.person.ShowStatusWord(kStatusComplete);
    result.report = RunReport(std::string(job.title.substr(0, job.title.size() - 1)), "files");
    result.report.SetHeadline(
        fmt::format("{} copied to {}", Counted(result.copy.copied, "file", "files"), to.string()));
    if (result.copy.copied > 0) result.report.MarkChanged();
    if (result.copy.stopped) result.report.Add("stopped");
    if (result.copy.failed > 0) result.report.Fail(CopySentence(result.copy, to));
    if (result.copy.failed > 0) result.refusal = CopySentence(result.copy, to);
    return result;
}

}  // namespace brantlow
