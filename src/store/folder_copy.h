// Copying the files of a folder one by one, as a back-up does.
#pragma once

#include <cstddef>
#include <functional>

#include "base/file_change.h"

namespace brantlow {

struct FolderCopy {
    std::size_t copied = 0;
    std::size_t failed = 0;
    Failure error;  // the first of them, and why
    bool stopped = false;
};

// What the copying is in the middle of.
struct CopyRun {
    // Takes the share of the files that is done, 0 to 1; false ends the copying: files that are copied by
    // then stay, or none where all are one group.
    std::function<bool(double)> proceed = nullptr;
    // Carries the change out, instead of its own Commit.
    std::function<Failure(FileChange&)> commit = nullptr;
};

// Whether the files come to their places in several groups, as those of a back-up, or all in one, as those of
// a restoring that can be undone: none of them then, where one cannot be written.
enum class CopyGroups { Several, AllInOne };

// Copies every regular file of `from`, hidden ones included, into `to` by `change`, each whole or not at all;
// files of the same name there are replaced, others stay, folders, unfinished files and the access keys are
// left out, but for kKeptFolders, whose files go into folders of the same names. A file that cannot be read
// is passed over. `to` is made when only its last folder is missing.
FolderCopy CopyFolderFiles(const Path& from, const Path& to, FileChange& change, CopyGroups groups,
                           const CopyRun& run = {});

}  // namespace brantlow
