// The folder of one change below `Back Up/Undo`: its list of files, their copies, and how they are put back.
// Between base/file_change.cpp, which writes it, and base/undo_store.cpp, which reads it.
//
// `Files.txt` has a first line (a mark, when, what, tab-separated) and a line a file: `kept`, `absent` or
// `grown`, the number of the copy, the length before, the path. Paths below the application folder are
// relative to it; control characters, `%` and what is not text are written %XX. A line without its end was
// cut off and does not count. `Change.txt` is written once the change is done: id, when, what, files, bytes.
// While the change is open its folder is named kOpenChange with the process number and a count.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_change.h"

namespace brantlow {

inline constexpr std::string_view kOpenChange = "open-";
inline constexpr std::string_view kChangeList = "Files.txt";
inline constexpr std::string_view kChangeSummary = "Change.txt";

struct ChangeList {
    std::string when;
    std::string what;
    std::vector<FileChange::Entry> entries;
};

std::string ChangeListHead(std::string_view when, std::string_view what);
std::string ChangeListLine(const FileChange::Entry& entry, const Path& appPath);
// A text without a head gives an empty list.
ChangeList ParseChangeList(std::string_view text, const Path& appPath);

// What a change's folder says of it once it is done.
struct ChangeSummary {
    std::size_t number = 0;  // 1, 2, ... in the order of the changes
    std::string when;
    std::string what;
    std::size_t files = 0;
    std::uintmax_t bytes = 0;  // of the kept files
    Path folder;
};
std::string ChangeSummaryLine(const ChangeSummary& summary);
// Nothing for a folder without a whole summary.
// `unread`, unless null, takes why a summary that is there could not be read.
std::optional<ChangeSummary> ReadChangeSummary(const Path& folder, Failure* unread = nullptr);
// The changes that are done, newest first.
// `unread` as above, of the first one, or of the folder itself.
std::vector<ChangeSummary> ReadChangeSummaries(const Path& undoFolder, Failure* unread = nullptr);

// The copy of a kept file in the folder of its change.
Path CopyOf(const FileChange::Entry& entry, const Path& folder);

// Puts every file of an open change back as it was, the newest first, by moving the copies to their places: a
// copy that is gone was put back by an earlier try. Goes on after an error and returns the first.
Failure PutBack(const std::vector<FileChange::Entry>& entries, const Path& folder);

// Takes a change's folder away, its list first, so that what is left of it counts as nothing.
void RemoveChangeFolder(const Path& folder);

// The file cut to its first `length` bytes, as a new file at `to`.
std::error_code CopyBeginning(const Path& from, std::uintmax_t length, const Path& to);

}  // namespace brantlow
