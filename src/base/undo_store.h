// The changes that can be undone, `Back Up/Undo/` of the application folder. base/file_change.h fills the
// store; here they are listed and their files brought back, and what a killed program left half done is taken
// back.
//
// Order of calls, at the start of every writing command and of the window: take the application folder's
// lock, load the settings, RecoverChanges, SweepTemporaries of the folders that are written, and the settings
// again where something was taken back (shell/session_change.h does these steps). Only then may a FileChange
// begin or UndoChange be called: an open list of an earlier program would put its old files over newer ones.
//
// Errors: a fault names the file and says that nothing was changed, unless it says that the list stays open;
// the next RecoverChanges tries such a list again, and nothing may be written before it succeeds.
//
// Caveats: what changes files needs the lock. An id is the number of a change, one more than that of the
// newest kept. Undoing brings back whole files: what was written to them since goes with it, and comes again
// by undoing the undoing.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/change_list.h"
#include "base/file_change.h"

namespace brantlow {

// The changes that can be undone, newest first. An id is its number as text.
using KeptChange = ChangeSummary;
// `unread`, unless null, takes why one of them, or their folder, could not be read.
std::vector<KeptChange> KeptChanges(const ChangePlace& place, Failure* unread = nullptr);

inline constexpr std::string_view kNothingToUndo = "There is no change to undo";

// "Undo X" for a change X, and X for "Undo X": the undoing is a change itself.
std::string NameOfUndoing(std::string_view what);
bool IsUndoing(std::string_view what);

struct UndoResult {
    KeptChange change;        // the one whose files are back; number 0 when there is no such change
    std::vector<Path> files;  // those that were brought back
    Failure fault;            // nothing was changed, unless it says so
};
// Brings the files of a change back to what they were before it, as a change of its own that can be undone
// again. `id` empty: the newest change.
UndoResult UndoChange(const ChangePlace& place, std::string_view id);

// A change that was cut off.
struct InterruptedChange {
    std::string what;
    Failure fault;  // it could not be taken back
};
// Takes the changes back that were open when their program ended, the newest first.
std::vector<InterruptedChange> RecoverChanges(const ChangePlace& place);
// One sentence for a person.
std::string InterruptedSentence(const InterruptedChange& change);

// The folder of a change that is open and whose program has ended.
bool IsLeftOpen(const Path& folder);

// Names of the unfinished files of programs that have ended.
std::vector<std::string> LeftTemporaries(const Path& folder);
// Deletes them from these folders.
void SweepTemporaries(std::span<const Path> folders);

// Drops the oldest changes beyond the limits, and folders without a change in them.
void DropOldChanges(const Path& undoFolder, const UndoLimits& limits);

}  // namespace brantlow
