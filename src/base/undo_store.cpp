#include "base/undo_store.h"

#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <set>

#include "base/file_calls.h"

namespace brantlow {

namespace {

using Entry = FileChange::Entry;

constexpr std::string_view kUndoing = "Undo ";

std::vector<Path> FoldersIn(const Path& folder, std::error_code& error) {
    std::vector<Path> folders;
    error.clear();
    for (auto it = std::filesystem::directory_iterator(folder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (it->is_directory(typeError)) folders.push_back(it->path());
    }
    const bool isNone = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (isNone) error.clear();
    return folders;
}

bool IsOpenChange(const Path& folder) {
    return folder.filename().native().starts_with(kOpenChange);
}

// Prepares that the file of `entry` is what it was.
Failure PrepareUndo(const Entry& entry, const Path& folder, FileChange& change) {
    if (entry.was == Entry::Was::Absent) return change.Delete(entry.path);
    const Path source = entry.was == Entry::Was::Kept ? CopyOf(entry, folder) : Path(entry.path);
    const ReadResult read = ReadWholeFile(source);
    const auto notRead = [&](const std::error_code& cause) {
        return FailedTo(FailureKind::Read, source, cause);
    };
    if (read.outcome == ReadOutcome::Failed) return notRead(read.error);
    if (read.outcome == ReadOutcome::Missing)
        return notRead(std::make_error_code(std::errc::no_such_file_or_directory));
    // Files are replaced whole or lengthened: one that is shorter was changed by another program.
    if (read.bytes.size() < entry.length) return notRead(std::make_error_code(std::errc::io_error));
    return change.Write(entry.path, std::string_view(read.bytes).substr(0, entry.length));
}

Failure CarryOut(const ChangeList& list, const Path& folder, FileChange& change, std::vector<Path>& files) {
    // A file that grew before it was replaced stands in the list twice, and its copy holds what it was.
    std::set<Path> kept;
    for (const Entry& entry : list.entries) {
        if (entry.was == Entry::Was::Kept) kept.insert(entry.path);
    }
    // The first entry of a file has the last word.
    for (auto entry = list.entries.rbegin(); entry != list.entries.rend(); ++entry) {
        if (entry->was == Entry::Was::Grown && kept.contains(entry->path)) continue;
        if (const Failure fault = PrepareUndo(*entry, folder, change)) return fault;
        files.push_back(entry->path);
    }
    return change.Commit();
}

bool HasEnded(pid_t process) {
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

std::vector<KeptChange> KeptChanges(const ChangePlace& place, Failure* unread) {
    return ReadChangeSummaries(place.UndoFolder(), unread);
}

bool IsUndoing(std::string_view what) {
    return what.starts_with(kUndoing);
}

std::string NameOfUndoing(std::string_view what) {
    if (IsUndoing(what)) return std::string(what.substr(kUndoing.size()));
    return std::string(kUndoing).append(what);
}

UndoResult UndoChange(const ChangePlace& place, std::string_view id) {
    UndoResult result;
    const std::vector<KeptChange> changes = KeptChanges(place, &result.fault);
    // It may be the newest that cannot be read.
    if (result.fault) return result;
    const auto found = std::find_if(changes.begin(), changes.end(), [&](const KeptChange& change) {
        return id.empty() || std::to_string(change.number) == id;
    });
    if (found == changes.end()) return result;
    result.change = *found;
    const Path file = found->folder / kChangeList;
    const ReadResult read = ReadWholeFile(file);
    const ChangeList list = ParseChangeList(read.bytes, place.appPath);
    if (list.entries.size() != found->files) {
        const auto damaged = std::make_error_code(std::errc::io_error);
        result.fault = FailedTo(FailureKind::Read, file, read.error ? read.error : damaged);
        return result;
    }
    FileChange change(place, NameOfUndoing(found->what));
    result.fault = CarryOut(list, found->folder, change, result.files);
    if (!result.fault) RemoveChangeFolder(found->folder);
    return result;
}

std::vector<InterruptedChange> RecoverChanges(const ChangePlace& place) {
    std::vector<InterruptedChange> interrupted;
    std::vector<Path> open;
    std::error_code unread;
    for (const Path& folder : FoldersIn(place.UndoFolder(), unread)) {
        if (IsOpenChange(folder)) open.push_back(folder);
    }
    // A change that was cut off may lie there.
    if (unread) return {{"The last change", FailedTo(FailureKind::List, place.UndoFolder(), unread)}};
    std::sort(open.rbegin(), open.rend());
    for (const Path& folder : open) {
        const ReadResult read = ReadWholeFile(folder / kChangeList);
        const ChangeList list = ParseChangeList(read.bytes, place.appPath);
        Failure fault;
        if (read.outcome == ReadOutcome::Failed)
            fault = FailedTo(FailureKind::Read, folder / kChangeList, read.error);
        if (!fault) fault = PutBack(list.entries, folder);
        if (!fault) RemoveChangeFolder(folder);
        if (fault || !list.entries.empty()) interrupted.push_back({list.what, fault});
    }
    return interrupted;
}

std::string InterruptedSentence(const InterruptedChange& change) {
    if (!change.fault) return change.what + " was interrupted: what it had changed was taken back.";
    return change.what + " may have been interrupted and cannot be taken back: " + Sentence(change.fault);
}

std::vector<std::string> LeftTemporaries(const Path& folder) {
    std::vector<std::string> names = TemporaryNamesIn(folder);
    std::erase_if(names, [](const std::string& name) { return !HasEnded(OwnerOfTemporary(name)); });
    return names;
}

void SweepTemporaries(std::span<const Path> folders) {
    for (const Path& folder : folders) {
        for (const std::string& name : LeftTemporaries(folder)) ::unlink((folder / name).c_str());
    }
}

bool IsLeftOpen(const Path& folder) {
    if (!IsOpenChange(folder)) return false;
    const std::string name = folder.filename().string();
    pid_t process = 0;
    const char* const first = name.data() + kOpenChange.size();
    return std::from_chars(first, name.data() + name.size(), process).ec != std::errc() || HasEnded(process);
}

void DropOldChanges(const Path& undoFolder, const UndoLimits& limits) {
    std::size_t kept = 0;
    std::uintmax_t bytes = 0;
    for (const KeptChange& change : ReadChangeSummaries(undoFolder)) {
        bytes += change.bytes;
        if (++kept > 1 && (kept > limits.changes || bytes > limits.bytes)) RemoveChangeFolder(change.folder);
    }
    std::error_code ignored;
    for (const Path& folder : FoldersIn(undoFolder, ignored)) {
        // A change whose line cannot be read just now is one all the same.
        Failure unread;
        const bool isChange = IsOpenChange(folder) || ReadChangeSummary(folder, &unread) || unread;
        if (!isChange) RemoveChangeFolder(folder);
    }
}

}  // namespace brantlow
