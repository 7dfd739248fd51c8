// A change of many files that happens wholly or not at all. Whatever a command replaces, deletes or lengthens
// beyond the ordinary save of one table goes through one of these:
//
//     FileChange change(ChangePlaceOf(session), "Split KO 2/1");   // shell/session_change.h
//     change.Write(file, bytes);        // any number, in any order; nothing is changed yet
//     change.Delete(oldFile);
//     if (const Failure fault = change.Commit()) ...               // ChangeSentence(what, fault)
//
// Until Commit the files stand as they were: new ones lie beside them under a temporary name. Commit flushes
// the new ones to the disk as a group, keeps the old ones under `Back Up/Undo/` with a list of what was there
// and what was not, puts the new ones in their places by renames, deletes last, flushes the folders and
// closes the list. An error on the way puts everything back: the fault then says that nothing was changed,
// or, where that failed too, that the list stays open. A list that a killed program left open is taken back
// by RecoverChanges (base/undo_store.h), under the application folder's lock.
//
// Files that grow by lines are lengthened in place, between WillGrow, which notes their length, and Commit.
// A change that is destroyed without Commit is taken back.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "base/flush_ahead.h"

namespace brantlow {

// What stays once a change is done.
enum class ChangeKeeps {
    ForUndo,    // its old files, as the newest change that can be undone
    UntilDone,  // nothing: the old files are there for the time of the change
    Nothing,    // as above, and none are kept meanwhile either: files that do not depend on one another
};

// How many changes can be undone, and how many bytes their files may hold. The newest is always kept.
struct UndoLimits {
    std::size_t changes = 20;
    std::uintmax_t bytes = std::uintmax_t{2} * 1024 * 1024 * 1024;
};

struct ChangePlace {
    Path appPath;
    std::string when;  // "YYYY-MM-DD HH:MM:SS"
    UndoLimits limits = {};
    // This folder is made where it is missing and a file of it is to be written. Any other has to be there: a
    // share that is not mounted is no empty folder.
    Path ownFolder = {};

    Path UndoFolder() const { return appPath / "Back Up" / "Undo"; }
};

class FileChange {
  public:
    // `what` is the change in words for a person, as a menu shows it behind "Undo".
    FileChange(ChangePlace place, std::string what, ChangeKeeps keeps = ChangeKeeps::ForUndo);
    ~FileChange();
    FileChange(const FileChange&) = delete;
    FileChange& operator=(const FileChange&) = delete;

    // Prepares that the file's bytes become these. A file of a second call takes the later bytes.
    Failure Write(const Path& path, std::string_view bytes);
    // Prepares that the file goes. One that is not there is passed over.
    Failure Delete(const Path& path);
    // The file is brought back with the others although this change does not touch it: it is written soon
    // after.
    void AlsoKeep(const Path& path) { alsoKept_.push_back(path); }
    // Where the file's newest bytes lie, prepared ones included: for who reads what it has just prepared.
    Path Where(const Path& path) const;
    bool IsDeleted(const Path& path) const { return deleted_.contains(path.native()); }
    // To be called before lines are added in place to the file Where(path).
    Failure WillGrow(const Path& path);
    // The same of several files at once that this change has not touched, each as long as it says.
    struct Growth {
        const Path* path;
        FileExtent before;
    };
    Failure WillGrow(std::span<const Growth> files);
    // Whether the file is written, deleted or lengthened by this change.
    bool Touches(const Path& path) const;

    // What stays once the change is done, where that shows only in its course.
    void KeepFor(ChangeKeeps keeps) { keeps_ = keeps; }

    // False when there is nothing to do yet.
    bool HasWork() const { return !staged_.empty() || !deleted_.empty() || !grown_.empty(); }
    // Carries the change out. A change without work leaves nothing behind.
    Failure Commit();
    // Everything as it was before the change; for a caller whose work failed elsewhere.
    Failure TakeBack();

    // One line of a change's list. Names as texts, here and below: a path takes ten times the memory, and an
    // import changes some hundred thousand files.
    struct Entry {
        enum class Was { Kept, Absent, Grown };
        Was was = Was::Absent;
        std::size_t number = 0;     // Kept: the name of the copy
        std::uintmax_t length = 0;  // Kept and Grown: bytes of the file before the change
        std::string path;           // absolute, or as the caller named it
    };

  private:
    struct Staged {
        std::string path;
        std::string temporary;  // empty once the file is to be deleted instead
        bool isNew = false;     // there was no file
        bool isInPlace = false;
        std::string former =
            {};  // without a list: a second name of the old file, until the folders are flushed
    };

    Failure OpenJournal();
    Failure Note(const std::string& lines);
    void TakeGrown(Entry entry, std::optional<std::uint64_t> device);
    Failure StageFile(const Path& path, std::string_view bytes);
    Failure SyncStaged();
    Failure SyncOneByOne() const;
    Failure SyncDevices() const;
    Failure Keep(const Path& path, std::string& lines);
    Failure KeepAll();
    Failure PutInPlace();
    void DropFormer();
    Failure SyncFolders() const;
    Failure Close();
    bool NeedsJournal() const;
    Failure Failed(Failure fault);
    void DropTemporaries();

    ChangePlace place_;
    std::string what_;
    ChangeKeeps keeps_;
    std::vector<Staged> staged_;
    std::unordered_map<std::string, std::size_t> stagedAt_;
    std::set<std::string> deleted_;
    std::vector<Path> alsoKept_;
    struct Grown {
        std::uintmax_t length = 0;            // before the change
        std::optional<std::uint64_t> device;  // that holds it, where it was there
    };
    std::unordered_map<std::string, Grown> grown_;
    FlushAhead ahead_;  // of grown files
    std::vector<Entry> entries_;
    Path journal_;  // its folder; empty while there is none
    int list_ = -1;
    std::size_t nextTemporary_ = 0;
};

}  // namespace brantlow
