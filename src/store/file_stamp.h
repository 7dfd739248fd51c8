// What a file was when it was read or written, to see later whether somebody else has changed it meanwhile.
// The open table keeps one, so that a save does not write over another program's changes unasked.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/files.h"

namespace brantlow {

struct FileStamp {
    bool exists = false;
    std::uintmax_t size = 0;
    std::int64_t changed = 0;  // nanoseconds
    std::uintmax_t inode = 0;
    std::size_t hash = 0;  // of the bytes
};

// The stamp of the file as it stands; one that cannot be read has no bytes.
FileStamp StampOf(const Path& file);

// The same for a file whose bytes are known already.
FileStamp StampOf(const Path& file, std::string_view bytes);

// False while the file's bytes are those of the stamp. A file that was only touched, or written anew with the
// same bytes, has not changed; one that came or went has.
bool HasChanged(const FileStamp& stamp, const Path& file);

}  // namespace brantlow
