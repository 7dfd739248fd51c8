// What the writers of files share below base/files.h: descriptors, temporary names, the flush of files and
// folders. For base/files.cpp, base/file_change.cpp and base/undo_store.cpp; others use their headers.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/files.h"

namespace brantlow {

inline std::error_code LastError() {
    return {errno, std::generic_category()};
}

// An open file descriptor, closed with its owner.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            Close();
            number_ = other.Release();
        }
        return *this;
    }

    int Number() const { return number_; }
    // The caller closes it from now on.
    int Release() { return std::exchange(number_, -1); }
    bool IsOpen() const { return number_ >= 0; }
    // False when the system reports a late write error.
    bool Close() {
        const int number = Release();
        return number < 0 || ::close(number) == 0;
    }

  private:
    int number_;
};

// The system reads a path up to a NUL and would take another file for it.
bool NamesNoFile(const Path& path);

// `written`, unless null, counts the bytes that were written, after an error too.
std::error_code WriteAll(int descriptor, std::string_view bytes, std::size_t* written = nullptr);
// Reads `count` bytes from `offset`; false where the file has become shorter or cannot be read.
bool ReadPart(int descriptor, char* to, std::size_t count, std::size_t offset);

// Where a file is written: the file itself, behind a link, and the permissions that it has or will have.
struct WriteTarget {
    Path path;
    bool exists = false;
    mode_t mode = 0;
};

// The error says why nothing may be written there: a folder, a device, a file that is read-only.
std::error_code FindWriteTarget(const Path& path, WriteTarget& target);

// Makes a file that did not exist; nothing is left of it after an error. `flush` as in WriteWholeFile.
std::error_code WriteNewFile(const Path& path, std::string_view bytes, Flush flush, mode_t mode);

// A name for a file of this process in `folder`, told apart by `number`.
Path TemporaryIn(const Path& folder, std::string_view number);
// The process that made a file of this name, 0 when it is none of ours.
pid_t OwnerOfTemporary(std::string_view name);
// The names in `folder` of such files, of whatever process.
std::vector<std::string> TemporaryNamesIn(const Path& folder);

// Brings the names in a folder, or one file, onto the disk.
std::error_code SyncFolder(const Path& folder);
std::error_code SyncFile(const Path& file);
// Everything of the file system that holds `folder`: dear, and cheaper than many files one by one.
std::error_code SyncFileSystem(const Path& folder);

}  // namespace brantlow
