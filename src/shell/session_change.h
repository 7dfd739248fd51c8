// A session's changes of files: where they are kept and by which limits (base/file_change.h), and what is due
// at the start of a writing command and of the window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/file_change.h"
#include "shell/session.h"

namespace brantlow {

ChangePlace ChangePlaceOf(const Session& session);

// What is drawn by hand lies in this folder of the data folder, and of its back-up.
inline constexpr std::string_view kDrawingsFolderName = "Drawings";

// A reply on its way, in the application folder; whoever wrote it deletes it.
inline constexpr std::string_view kReplyName = "Temp.txt";

// The application folder and the folders of the settings into which the program writes.
std::vector<Path> WrittenFolders(const Session& session);

// FileChange::Commit and TakeBack while the windows of a run live on: many files take as long as the disk
// does.
Failure CommitBeside(Session& session, FileChange& change);
Failure TakeBackBeside(Session& session, FileChange& change);

// What a killed program left behind in the application folder and in the folders of the settings: open
// changes are taken back, unfinished files and the reply that was being read go.
struct FolderRecovery {
    std::vector<std::string> sentences;  // one for each change that was cut off, for a person
    bool tookUndoBack = false;           // one of them was an undoing
    bool tookChangeBack = false;         // one of them was another change
    bool failed = false;                 // one could not be taken back: nothing may be written
};
// Under the application folder's lock, once the settings are loaded. The caller loads them anew when
// something was taken back.
FolderRecovery RecoverFolder(const Session& session);

}  // namespace brantlow
