// Where the source of this build lies, for tests that read the shipped files.
//
// One small file knows it, so that a compiler cache serves all others in every clone.
#pragma once

#include <filesystem>

namespace brantlow {

std::filesystem::path SourceFolder();

}  // namespace brantlow
