// The folders of the data folder that hold a person's own work: they go with the program's files to a back-up
// and come back with them.
#pragma once

#include <array>
#include <string_view>

#include "shell/session_change.h"

namespace brantlow {

// Definitions of quote sources, a file each.
inline constexpr std::string_view kSourcesFolder = "Sources";

inline constexpr std::array kKeptFolders = {kDrawingsFolderName, kSourcesFolder};

}  // namespace brantlow
