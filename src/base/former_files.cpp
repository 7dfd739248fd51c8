#include "base/former_files.h"

namespace brantlow {

FormerFiles::FormerFiles(std::initializer_list<Path> paths) {
    for (const Path& path : paths) files_.push_back({path, ReadWholeFile(path)});
}

std::error_code FormerFiles::PutBack() const {
    std::error_code first;
    for (const Former& file : files_) {
        if (file.read.outcome == ReadOutcome::Missing) DeleteOneFile(file.path);
        if (file.read.outcome != ReadOutcome::Done) continue;
        if (BytesOrEmpty(file.path) == file.read.bytes && IsRegularFile(file.path)) continue;
        const std::error_code error = WriteWholeFile(file.path, file.read.bytes);
        if (!first) first = error;
    }
    return first;
}

}  // namespace brantlow
