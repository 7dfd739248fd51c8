#include "base/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <utility>

#include "base/file_calls.h"

namespace brantlow {

namespace {

std::error_code NoSuchName() {
    return std::make_error_code(std::errc::invalid_argument);
}

// Reads to the end of the file behind the first `used` bytes, and adds what was read to `used`.
std::error_code ReadAll(int descriptor, std::string& bytes, std::size_t& used) {
    for (;;) {
        if (used == bytes.size()) bytes.resize(used + std::max<std::size_t>(used, 4096));
        const ssize_t count = ::read(descriptor, bytes.data() + used, bytes.size() - used);
        if (count < 0) {
            if (errno == EINTR) continue;
            return LastError();
        }
        if (count == 0) return {};
        used += static_cast<std::size_t>(count);
    }
}

constexpr int kToAppend = O_APPEND | O_CLOEXEC | O_NONBLOCK;

bool HoldsNul(const std::string& name) {
    return name.find('\0') != std::string::npos;
}

// Opens a file without its time of access, which the disk would have to keep; only its owner may.
int OpenQuietly(const char* name, int flags) {
    const int descriptor = ::open(name, flags | O_NOATIME);
    return descriptor < 0 && errno == EPERM ? ::open(name, flags) : descriptor;
}

FileExtent ExtentOf(const struct stat& status) {
    return {static_cast<std::uintmax_t>(status.st_size), status.st_dev, status.st_ino};
}

// Opens a regular file for reading and tells its extent; closed, with the reason, where there is none.
Descriptor OpenToRead(const std::string& name, FileExtent& extent, ReadResult& result,
                      int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK) {
    if (HoldsNul(name)) return Descriptor(-1);
    Descriptor file(OpenQuietly(name.c_str(), flags));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) {
        result.error = LastError();
        const bool missing = result.error == std::errc::no_such_file_or_directory ||
                             result.error == std::errc::not_a_directory;
        result.outcome = missing ? ReadOutcome::Missing : ReadOutcome::Failed;
        if (missing) result.error.clear();
        file.Close();
        return file;
    }
    if (!S_ISREG(status.st_mode)) {
        result.outcome = ReadOutcome::Failed;
        result.error = std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory
                                                                    : std::errc::invalid_argument);
        file.Close();
    }
    extent = ExtentOf(status);
    return file;
}

// ReadIntoBuffer for an open file of `size` bytes.
ReadOutcome ReadBehind(int descriptor, std::size_t size, std::string& buffer, std::size_t& used) {
    const std::size_t needed = used + size + 1;
    if (buffer.size() < needed) buffer.resize(needed);
    std::size_t end = used;
    if (ReadAll(descriptor, buffer, end)) return ReadOutcome::Failed;
    used = end;
    return ReadOutcome::Done;
}

// The file that a link points to, so that it is replaced and not the link; `path` itself where it is none.
Path BehindLink(const Path& path, std::error_code& error) {
    struct stat status {};
    const bool isLink = ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    return isLink ? std::filesystem::canonical(path, error) : path;
}

Path FolderOf(const Path& file) {
    return file.has_parent_path() ? file.parent_path() : Path(".");
}

std::error_code SyncOpened(const Path& path, int (*sync)(int)) {
    const Descriptor opened(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened.IsOpen() || sync(opened.Number()) != 0) return LastError();
    return {};
}

// Puts a finished file in its place. A second name of the old file brings it back where the folder cannot be
// flushed; a file system without second names goes without.
std::error_code TakePlace(const Path& temporary, const WriteTarget& target, Flush flush) {
    const Path old = temporary.native() + "o";
    ::unlink(old.c_str());
    const bool keepsOld =
        flush == Flush::ToDisk && target.exists && ::link(target.path.c_str(), old.c_str()) == 0;
    std::error_code error;
    if (::rename(temporary.c_str(), target.path.c_str()) != 0) error = LastError();
    if (!error && flush == Flush::ToDisk) error = SyncFolder(FolderOf(target.path));
    if (error && keepsOld) {
        ::rename(old.c_str(), target.path.c_str());
    } else if (error && !target.exists) {
        ::unlink(target.path.c_str());
    }
    if (keepsOld) ::unlink(old.c_str());
    return error;
}

}  // namespace

bool NamesNoFile(const Path& path) {
    return HoldsNul(path.native());
}

std::error_code WriteAll(int descriptor, std::string_view bytes, std::size_t* written) {
    std::size_t done = 0;
    std::error_code error;
    while (!error && done < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (count >= 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            error = LastError();
        }
    }
    if (written != nullptr) *written = done;
    return error;
}

bool ReadPart(int descriptor, char* to, std::size_t count, std::size_t offset) {
    while (count > 0) {
        const ssize_t got = ::pread(descriptor, to, count, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        to += got;
        count -= static_cast<std::size_t>(got);
        offset += static_cast<std::size_t>(got);
    }
    return true;
}

std::error_code FindWriteTarget(const Path& path, WriteTarget& target) {
    if (NamesNoFile(path)) return NoSuchName();
    std::error_code error;
    target.path = BehindLink(path, error);
    if (error) return error;
    struct stat status {};
    target.exists = ::stat(target.path.c_str(), &status) == 0;
    if (target.exists && !S_ISREG(status.st_mode)) {
        return std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory
                                                            : std::errc::invalid_argument);
    }
    if (target.exists && ::access(target.path.c_str(), W_OK) != 0) return LastError();
    constexpr mode_t kDefaultMode = 0666;
    constexpr mode_t kPermissions = 0777;
    target.mode = target.exists ? status.st_mode & kPermissions : kDefaultMode;
    return {};
}

std::error_code WriteNewFile(const Path& path, std::string_view bytes, Flush flush, mode_t mode) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.IsOpen()) return LastError();
    std::error_code error = WriteAll(file.Number(), bytes);
    if (!error && flush == Flush::ToDisk && ::fdatasync(file.Number()) != 0) error = LastError();
    if (!file.Close() && !error) error = LastError();
    if (error) ::unlink(path.c_str());
    return error;
}

Path TemporaryIn(const Path& folder, std::string_view number) {
    std::string name(kTemporaryPrefix);
    name.append(std::to_string(::getpid())).append(1, '-').append(number).append(".tmp");
    return folder / name;
}

bool IsTemporaryName(std::string_view name) {
    return OwnerOfTemporary(name) > 0;
}

pid_t OwnerOfTemporary(std::string_view name) {
    if (!name.starts_with(kTemporaryPrefix) || name.find(".tmp") == std::string_view::npos) return 0;
    name.remove_prefix(kTemporaryPrefix.size());
    pid_t owner = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), owner);
    return parsed.ec == std::errc() ? owner : 0;
}

std::vector<std::string> TemporaryNamesIn(const Path& folder) {
    std::vector<std::string> names;
    // The standard library's iterator makes a path of each name, which takes longer than the listing.
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
    while (const dirent* const entry = listing ? ::readdir(listing.get()) : nullptr) {
        if (IsTemporaryName(entry->d_name)) names.emplace_back(entry->d_name);
    }
    return names;
}

std::error_code SyncFolder(const Path& folder) {
    return SyncOpened(folder, ::fsync);
}

std::error_code SyncFile(const Path& file) {
    return SyncOpened(file, ::fdatasync);
}

std::error_code SyncFileSystem(const Path& folder) {
    return SyncOpened(folder, ::syncfs);
}

ReadResult ReadWholeFile(const Path& path) {
    ReadResult result;
    FileExtent extent;
    const Descriptor file = OpenToRead(path.native(), extent, result);
    if (!file.IsOpen()) return result;
    // One byte more than the file holds, so that a single further read meets its end.
    result.bytes.resize(extent.length + 1);
    std::size_t used = 0;
    result.error = ReadAll(file.Number(), result.bytes, used);
    result.bytes.resize(result.error ? 0 : used);
    result.outcome = result.error ? ReadOutcome::Failed : ReadOutcome::Done;
    return result;
}

ReadOutcome ReadIntoBuffer(const Path& path, std::string& buffer, std::size_t& used) {
    ReadResult result;
    FileExtent extent;
    const Descriptor file = OpenToRead(path.native(), extent, result);
    return file.IsOpen() ? ReadBehind(file.Number(), extent.length, buffer, used) : result.outcome;
}

std::string BytesOrEmpty(const Path& path) {
    return ReadWholeFile(path).bytes;
}

std::error_code WriteWholeFile(const Path& path, std::string_view bytes, Flush flush) {
    WriteTarget target;
    if (const auto error = FindWriteTarget(path, target)) return error;
    // Thread numbers are unique on the machine, so that two writers never share a temporary file.
    const Path temporary = TemporaryIn(FolderOf(target.path), std::to_string(::gettid()));
    ::unlink(temporary.c_str());
    std::error_code error = WriteNewFile(temporary, bytes, flush, target.mode);
    if (!error) error = TakePlace(temporary, target, flush);
    if (error) ::unlink(temporary.c_str());
    return error;
}

std::error_code ScratchFile::Write(std::string_view bytes) {
    const std::error_code error = WriteAnew(bytes);
    if (error) Delete();
    return error;
}

std::error_code ScratchFile::WriteAnew(std::string_view bytes) {
    if (NamesNoFile(path_)) return NoSuchName();
    if (descriptor_ < 0) {
        if (::unlink(path_.c_str()) != 0 && errno != ENOENT) return LastError();
        constexpr mode_t kDefaultMode = 0666;
        descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kDefaultMode);
        length_ = 0;
    }
    if (descriptor_ < 0 || ::lseek(descriptor_, 0, SEEK_SET) != 0) return LastError();
    if (const std::error_code error = WriteAll(descriptor_, bytes)) return error;
    if (bytes.size() < length_ && ::ftruncate(descriptor_, static_cast<off_t>(bytes.size())) != 0)
        return LastError();
    length_ = bytes.size();
    return {};
}

void ScratchFile::Delete() {
    if (descriptor_ < 0) return;
    ::close(std::exchange(descriptor_, -1));
    ::unlink(path_.c_str());
}

std::error_code AppendToFile(const Path& path, std::string_view bytes) {
    GrowingFile file(path);
    if (const auto error = file.Append(bytes)) return error;
    return file.Close();
}

ReadOutcome GrowingFile::ReadIntoBuffer(std::string& buffer, std::size_t& used) {
    Close();
    ReadResult result;
    FileExtent extent;
    Descriptor file = OpenToRead(path_, extent, result, O_RDWR | kToAppend);
    // A file that may not grow can be read all the same.
    if (!file.IsOpen()) {
        const bool isMissing = result.outcome == ReadOutcome::Missing;
        return isMissing ? result.outcome : brantlow::ReadIntoBuffer(path_, buffer, used);
    }
    descriptor_ = file.Release();
    return ReadBehind(descriptor_, extent.length, buffer, used);
}

ReadOutcome GrowingFile::ReadEndIntoBuffer(std::size_t least, std::size_t most, std::string& buffer,
                                           std::size_t& used, FileEnd& end) {
    Close();
    ReadResult result;
    Descriptor file = OpenToRead(path_, end.extent, result, O_RDWR | kToAppend);
    if (!file.IsOpen()) return result.outcome;
    descriptor_ = file.Release();
    const auto size = static_cast<std::size_t>(end.extent.length);
    end.leftOut = std::min(size - std::min(size, least), most);
    const std::size_t count = size - end.leftOut;
    if (buffer.size() < used + count) buffer.resize(used + count);
    if (!ReadPart(descriptor_, buffer.data() + used, count, end.leftOut)) return ReadOutcome::Failed;
    used += count;
    return ReadOutcome::Done;
}

std::error_code GrowingFile::Append(std::string_view bytes) {
    if (HoldsNul(path_)) return NoSuchName();
    constexpr mode_t kDefaultMode = 0666;
    if (descriptor_ < 0) descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | kToAppend, kDefaultMode);
    if (descriptor_ < 0) return LastError();
    std::size_t written = 0;
    const std::error_code error = WriteAll(descriptor_, bytes, &written);
    // A disk that filled up in mid-write: what was there before stands alone again.
    if (error && written > 0) {
        struct stat status {};
        const bool isCut = ::fstat(descriptor_, &status) == 0 &&
                           ::ftruncate(descriptor_, status.st_size - static_cast<off_t>(written)) == 0;
        if (!isCut) return LastError();
    }
    return error;
}

std::optional<FileExtent> GrowingFile::Extent() const {
    struct stat status {};
    if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0) return std::nullopt;
    return ExtentOf(status);
}

std::error_code GrowingFile::Close() {
    if (descriptor_ < 0) return {};
    return ::close(std::exchange(descriptor_, -1)) == 0 ? std::error_code{} : LastError();
}

bool DeleteOneFile(const Path& path) {
    return !NamesNoFile(path) && ::unlink(path.c_str()) == 0;
}

bool IsRegularFile(const Path& path) {
    std::error_code error;
    return !NamesNoFile(path) && std::filesystem::is_regular_file(path, error);
}

std::vector<std::string> FileNamesIn(const Path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(folder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError)) names.push_back(it->path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string PlatformPath(std::string_view text) {
    std::string path(text);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

}  // namespace brantlow
