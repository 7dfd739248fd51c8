// The user's files of an application folder as they stand, and whether a file is whole: as it was before a
// command, as it is after one that nothing disturbed, or between two whole steps of it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace brantlow {

// By path below the application folder. Locks, undo copies and journals are the program's own and are left
// out, and so is what only tells how the last run went and when sources were asked.
using FolderImage = std::map<std::string, std::string>;
FolderImage ImageOf(const Path& app);

// Files that a writer left unfinished, wherever they lie.
std::vector<std::string> TemporariesIn(const Path& app);

// What is wrong with the files of `now`, a line each; nothing when every one is whole. A file that stands
// before and after is not absent in between.
std::vector<std::string> TornFiles(const FolderImage& before, const FolderImage& after,
                                   const FolderImage& now);

// The paths whose bytes differ.
std::vector<std::string> Differences(const FolderImage& one, const FolderImage& other);

}  // namespace brantlow
