// Copying the files of a folder one by one, as a back-up does.
#pragma once

#include <cstddef>
#include <functional>
#include <system_error>

#include "base/files.h"

namespace brantlow {

struct FolderCopy {
    std::size_t copied = 0;
    std::size_t failed = 0;
    std::error_code error;  // why the first of them failed
};

// Copies every regular file of `from`, hidden ones included, into `to`, each whole or not at all; files of
// the same name there are replaced, others stay, folders are left out. A file that cannot be copied is passed
// over. `to` is made when only its last folder is missing. `progress`, where there is one, takes the share of
// the files that is done, 0 to 1.
FolderCopy CopyFolderFiles(const Path& from, const Path& to,
                           const std::function<void(double)>& progress = nullptr);

}  // namespace brantlow
