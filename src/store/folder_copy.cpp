#include "store/folder_copy.h"

namespace brantlow {

namespace {

std::error_code CopyWholeFile(const Path& from, const Path& to) {
    const ReadResult read = ReadWholeFile(from);
    if (read.outcome == ReadOutcome::Missing) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (read.outcome == ReadOutcome::Failed) return read.error;
    return WriteWholeFile(to, read.bytes, Flush::Later);
}

}  // namespace

FolderCopy CopyFolderFiles(const Path& from, const Path& to, const std::function<void(double)>& progress) {
    std::error_code ignored;
    // No more than the last folder: the ones above are missing when the drive is.
    std::filesystem::create_directory(to, ignored);
    FolderCopy copy;
    const std::vector<std::string> names = FileNamesIn(from);
    for (const std::string& name : names) {
        const std::error_code error = CopyWholeFile(from / name, to / name);
        if (progress) {
            progress(static_cast<double>(copy.copied + copy.failed + 1) / static_cast<double>(names.size()));
        }
        if (!error) {
            ++copy.copied;
            continue;
        }
        if (copy.failed++ == 0) copy.error = error;
    }
    return copy;
}

}  // namespace brantlow
