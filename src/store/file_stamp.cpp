#include "store/file_stamp.h"

#include <sys/stat.h>

#include <functional>

namespace brantlow {

namespace {

// Everything but the hash.
FileStamp LookAt(const Path& file) {
    FileStamp stamp;
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) return stamp;
    constexpr std::int64_t kNanoseconds = 1000000000;
    stamp.exists = true;
    stamp.size = static_cast<std::uintmax_t>(status.st_size);
    stamp.changed = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec;
    stamp.inode = status.st_ino;
    return stamp;
}

std::size_t HashOf(const Path& file) {
    return std::hash<std::string_view>{}(ReadWholeFile(file).bytes);
}

}  // namespace

FileStamp StampOf(const Path& file) {
    FileStamp stamp = LookAt(file);
    if (stamp.exists) stamp.hash = HashOf(file);
    return stamp;
}

FileStamp StampOf(const Path& file, std::string_view bytes) {
    FileStamp stamp = LookAt(file);
    stamp.hash = std::hash<std::string_view>{}(bytes);
    return stamp;
}

bool HasChanged(const FileStamp& stamp, const Path& file) {
    const FileStamp now = LookAt(file);
    if (now.exists != stamp.exists) return true;
    if (!now.exists) return false;
    const bool isSame = now.size == stamp.size && now.changed == stamp.changed && now.inode == stamp.inode;
    return !isSame && (now.size != stamp.size || HashOf(file) != stamp.hash);
}

}  // namespace brantlow
