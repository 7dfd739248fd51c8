// Whole files in and out. A writer replaces a file by renaming a finished one over it, so that a reader never
// sees half a file and a crash leaves the old one or the new one. A path with a NUL in it names no file:
// nothing is read or written for it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace brantlow {

using Path = std::filesystem::path;

// Why a file gave no bytes. A folder in place of a file is Failed.
enum class ReadOutcome { Done, Missing, Failed };

struct ReadResult {
    ReadOutcome outcome = ReadOutcome::Missing;
    std::string bytes;      // empty unless Done
    std::error_code error;  // set when Failed
};

ReadResult ReadWholeFile(const Path& path);

// Reads the file behind the first `used` bytes of `buffer`, which grows where it must and keeps its size
// otherwise, and adds the file's size to `used`: for readers of many files that keep one buffer. Unless Done,
// `used` stays as it was.
ReadOutcome ReadIntoBuffer(const Path& path, std::string& buffer, std::size_t& used);

// The bytes of the file, empty when it cannot be read: for callers to whom a missing file is an empty one.
std::string BytesOrEmpty(const Path& path);

// The beginning of the names of unfinished files, and the process number behind it. Whoever made one takes it
// away again; what a killed program left is taken away by SweepTemporaries (base/undo_store.h).
inline constexpr std::string_view kTemporaryPrefix = ".brantlow-";
bool IsTemporaryName(std::string_view name);

// The access keys of the data folder: in no back-up and no undo copy.
inline constexpr std::string_view kKeysFileName = "Keys.ini";

// ToDisk: the file is on the disk before it takes the old one's place, and its folder after that. Later is
// for work files that nobody misses; many files that belong together are flushed by base/file_change.h.
enum class Flush { ToDisk, Later };

// Replaces `path` by `bytes`. On failure the old file stands, no other file is left behind and the reason is
// returned.
std::error_code WriteWholeFile(const Path& path, std::string_view bytes, Flush flush = Flush::ToDisk);

// A work file of this process alone, kept open, which is quicker than a new file for each text; it goes with
// its owner.
class ScratchFile {
  public:
    explicit ScratchFile(Path path) : path_(std::move(path)) {}
    ~ScratchFile() { Delete(); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const Path& Name() const { return path_; }
    // The file holds these bytes and no others. The first time it takes the place of what has its name; after
    // a failure it is gone.
    std::error_code Write(std::string_view bytes);
    // To be called too where another file has taken its place.
    void Delete();

  private:
    std::error_code WriteAnew(std::string_view bytes);

    Path path_;
    int descriptor_ = -1;
    std::size_t length_ = 0;
};

// Adds whole lines to the end of `path` in one write, creating it when it is missing.
std::error_code AppendToFile(const Path& path, std::string_view bytes);

// How long a file is, and what holds it.
struct FileExtent {
    std::uintmax_t length = 0;
    std::uint64_t device = 0;
    std::uint64_t number = 0;  // on its device, whatever the name
};

// What was read of a file's end: how long the file was, and how many bytes at its front were left out.
struct FileEnd {
    FileExtent extent;
    std::size_t leftOut = 0;
};

// A file that is read and grows by whole lines while it is kept open: for writers of one line after another,
// and for those that look at a file before they add to it. Nothing is opened before it is needed. Nobody else
// may replace or delete the file meanwhile.
class GrowingFile {
  public:
    explicit GrowingFile(const Path& path) : path_(path.native()) {}
    ~GrowingFile() { Close(); }
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    // As the routine of this name above.
    ReadOutcome ReadIntoBuffer(std::string& buffer, std::size_t& used);
    // The same without the first bytes of a file that holds more than `least`: as many as that allows are
    // left out, `most` of them at the most. Failed too where the file may not grow.
    ReadOutcome ReadEndIntoBuffer(std::size_t least, std::size_t most, std::string& buffer, std::size_t& used,
                                  FileEnd& end);
    // Adds whole lines to the end in one write; creates the file when it is missing.
    std::error_code Append(std::string_view bytes);
    // As it is now; nothing while it is not open.
    std::optional<FileExtent> Extent() const;
    // Tells a write error that the system reports late.
    std::error_code Close();

  private:
    std::string path_;
    int descriptor_ = -1;  // open for appending
};

// Deletes a file; true when one was deleted. A folder is never deleted.
bool DeleteOneFile(const Path& path);

bool IsRegularFile(const Path& path);

// Names of the regular files in `folder`, sorted; empty when the folder cannot be read.
std::vector<std::string> FileNamesIn(const Path& folder);

// `text` as a path of this platform: backslashes, as settings files of any age hold them, become slashes.
std::string PlatformPath(std::string_view text);

}  // namespace brantlow
