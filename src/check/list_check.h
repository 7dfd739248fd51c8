// Looks through the smaller files of the application folder: the update list, the split log, the hosts, what
// live sources keep, what was drawn into charts, files that a killed program left, and the changes that can
// be undone.
#pragma once

#include <string_view>
#include <vector>

#include "check/finding.h"

namespace brantlow {

std::vector<Finding> CheckUpdateList(const Path& file, std::string_view bytes);
std::vector<Finding> CheckSplitLog(const Path& file, std::string_view bytes);
std::vector<Finding> CheckHosts(const Path& file, std::string_view bytes);
std::vector<Finding> CheckJson(const Path& file, std::string_view bytes);
std::vector<Finding> CheckDrawings(const Path& file, std::string_view bytes);

// Unfinished files in a folder whose program has ended.
std::vector<Finding> CheckLeftovers(const Path& folder);

// The folders below `Back Up/Undo`.
std::vector<Finding> CheckUndo(const Path& appPath, const Path& undoFolder);

// Repairs without a guess: lines that are empty, or empty but for bytes of value 0, go; the split log keeps
// its first hundred entries, which are all that are read.
std::string MendList(std::string_view bytes);
bool IsListMendable(FindingKind kind);

}  // namespace brantlow
