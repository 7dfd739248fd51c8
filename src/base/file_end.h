// The end of a file, for readers that need its last lines alone.
#pragma once

#include <cstddef>
#include <string>

#include "base/files.h"

namespace brantlow {

// Reads the last `most` bytes of the file, or all of it where it has no more, behind the first `used` bytes
// of `buffer`, as ReadIntoBuffer does (base/files.h); a byte of room is left behind them. `isWhole` tells
// whether that was all. Unless Done, `used` stays as it was.
ReadOutcome ReadEndIntoBuffer(const Path& path, std::size_t most, std::string& buffer, std::size_t& used,
                              bool& isWhole);

// Bytes of a regular file; 0 for what is missing or is none.
std::uintmax_t BytesOfFile(const Path& path);

}  // namespace brantlow
