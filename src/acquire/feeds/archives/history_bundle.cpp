#include "acquire/feeds/archives/history_bundle.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "base/file_calls.h"
#include "base/text.h"

namespace brantlow {

namespace {

namespace fs = std::filesystem;

// A damaged entry ends the reading of the archive; it is opened again behind it, this often.
constexpr std::size_t kMostDamagedEntries = 100;
constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

Failure Refusal(const Path& from, std::string why) {
    Failure failure;
    failure.kind = FailureKind::Other;
    failure.file = from;
    failure.text = std::move(why);
    return failure;
}

// A name that would lie outside the folder to which the archive is unpacked.
bool LeadsOut(std::string_view name) {
    if (name.empty() || name.front() == '/' || name.front() == '\\') return true;
    if (name.size() > 1 && name[1] == ':') return true;
    std::string parts(name);
    std::replace(parts.begin(), parts.end(), '\\', '/');
    const std::vector<std::string_view> pieces = SplitAt(parts, '/');
    return std::find(pieces.begin(), pieces.end(), "..") != pieces.end();
}

// An archive that is read from its first entry on.
class ZipReader {
  public:
    explicit ZipReader(const Path& from) : from_(from), archive_(archive_read_new(), archive_read_free) {}

    Failure Open() {
        file_ = Descriptor(::open(from_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!file_.IsOpen()) return FailedTo(FailureKind::Read, from_, LastError());
        archive_read_support_format_zip_seekable(archive_.get());
        if (archive_read_open_fd(archive_.get(), file_.Number(), kBlockBytes) == ARCHIVE_OK) return {};
        return Broken();
    }

    // The next entry that is no folder; null at the end, and with a fault.
    archive_entry* Next(Failure& fault) {
        for (;;) {
            archive_entry* entry = nullptr;
            const int result = archive_read_next_header(archive_.get(), &entry);
            if (result == ARCHIVE_EOF) return nullptr;
            if (result < ARCHIVE_WARN) {
                fault = Broken();
                return nullptr;
            }
            fault = Refused(entry);
            if (fault) return nullptr;
            if (archive_entry_filetype(entry) == AE_IFREG) return entry;
        }
    }

    // The bytes of the entry in hand. `isBroken` that no further entry can be read from here.
    std::string Read(std::string& bytes, std::uintmax_t most, bool& isBroken, Failure& fault) {
        bytes.clear();
        std::size_t used = 0;
        for (;;) {
            bytes.resize(used + kBlockBytes * 4);
            const la_ssize_t got =
                archive_read_data(archive_.get(), bytes.data() + used, bytes.size() - used);
            if (got < 0) return Damage(got, isBroken, fault);
            used += static_cast<std::size_t>(got);
            if (used > most) return "it is larger than " + std::to_string(most / 1024 / 1024) + " MB";
            if (got == 0) break;
        }
        bytes.resize(used);
        return {};
    }

    static std::string NameOf(archive_entry* entry) {
        const char* name = archive_entry_pathname_utf8(entry);
        if (name == nullptr) name = archive_entry_pathname(entry);
        return name == nullptr ? std::string() : std::string(name);
    }

  private:
    std::string Words() const {
        const char* words = archive_error_string(archive_.get());
        return words == nullptr ? std::string("no reason is told") : std::string(words);
    }

    // The system's own errors are told as such.
    bool IsOfSystem() const {
        const int code = archive_errno(archive_.get());
        return code > 0 && code != EILSEQ && code != EINVAL;
    }

    Failure Broken() const {
        if (IsOfSystem()) {
            return FailedTo(FailureKind::Read, from_,
                            {archive_errno(archive_.get()), std::generic_category()});
        }
        return Refusal(from_, "is no whole zip archive (" + Words() + ")");
    }

    Failure Refused(archive_entry* entry) const {
        const std::string name = NameOf(entry);
        if (LeadsOut(name)) return Refusal(from_, "its entry '" + name + "' leads out of it");
        const bool isLink =
            archive_entry_symlink(entry) != nullptr || archive_entry_hardlink(entry) != nullptr;
        const auto type = archive_entry_filetype(entry);
        if (isLink || (type != AE_IFREG && type != AE_IFDIR)) {
            return Refusal(from_, "its entry '" + name + "' is no file");
        }
        return {};
    }

    std::string Damage(la_ssize_t result, bool& isBroken, Failure& fault) const {
        if (IsOfSystem()) fault = Broken();
        isBroken = result == ARCHIVE_FATAL;
        return "its packed bytes are damaged (" + Words() + ")";
    }

    const Path& from_;
    std::unique_ptr<archive, int (*)(archive*)> archive_;
    Descriptor file_{-1};
};

BundleEntry EntryOf(archive_entry* entry) {
    const la_int64_t bytes = archive_entry_size(entry);
    return {ZipReader::NameOf(entry), bytes > 0 ? static_cast<std::uintmax_t>(bytes) : 0};
}

Failure TooMany(const Path& from, const BundleLimits& limits) {
    return Refusal(from, "holds more than " + std::to_string(limits.files) + " files");
}

// Everything below `folder`, sorted by name, so that a run does not hang on the order of the disk.
BundleList ListFolder(const Path& folder, const BundleLimits& limits) {
    BundleList list;
    std::error_code error;
    for (auto it = fs::recursive_directory_iterator(folder, error);
         !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        std::error_code unknown;
        const fs::file_status status = it->symlink_status(unknown);
        if (status.type() == fs::file_type::symlink) ++list.links;
        if (status.type() != fs::file_type::regular) continue;
        const std::uintmax_t bytes = it->file_size(unknown);
        list.entries.push_back({it->path().lexically_relative(folder).generic_string(), unknown ? 0 : bytes});
        if (list.entries.size() > limits.files) {
            list.fault = TooMany(folder, limits);
            return list;
        }
    }
    if (error) list.fault = FailedTo(FailureKind::List, folder, error);
    std::sort(list.entries.begin(), list.entries.end(),
              [](const BundleEntry& a, const BundleEntry& b) { return a.name < b.name; });
    return list;
}

BundleList ListArchive(const Path& from, const BundleLimits& limits) {
    BundleList list;
    ZipReader reader(from);
    if ((list.fault = reader.Open())) return list;
    while (archive_entry* entry = reader.Next(list.fault)) {
        list.entries.push_back(EntryOf(entry));
        if (list.entries.size() > limits.files) {
            list.fault = TooMany(from, limits);
            return list;
        }
    }
    return list;
}

bool IsText(const Path& from) {
    const std::string ending = UpperCase(from.extension().string());
    return ending == ".TXT" || ending == ".CSV";
}

// Where the files of a folder, or a file by itself, lie.
struct Loose {
    Path folder;
    BundleList list;
};

Loose LooseFiles(const Path& from, const BundleLimits& limits) {
    if (fs::is_directory(from)) return {from, ListFolder(from, limits)};
    std::error_code unknown;
    const std::uintmax_t bytes = fs::file_size(from, unknown);
    return {from.parent_path(), {{{from.filename().string(), unknown ? 0 : bytes}}, 0, {}}};
}

bool IsLoose(const Path& from) {
    std::error_code unknown;
    return fs::is_directory(from, unknown) || (fs::is_regular_file(from, unknown) && IsText(from));
}

// Counts what a reading has cost.
class Meter {
  public:
    Meter(const Path& from, const BundleLimits& limits) : from_(from), limits_(limits) {}

    std::uintmax_t MostOfFile() const { return limits_.bytesOfFile; }
    Failure Count(std::uintmax_t bytes) {
        read_ += bytes;
        if (read_ <= limits_.bytes) return {};
        constexpr std::uintmax_t kGigabyte = std::uintmax_t{1024} * 1024 * 1024;
        return Refusal(from_, "unpacks to more than " + std::to_string(limits_.bytes / kGigabyte) + " GB");
    }

  private:
    const Path& from_;
    const BundleLimits& limits_;
    std::uintmax_t read_ = 0;
};

Failure ReadLoose(const Loose& loose, const BundleReading& reading, Meter& meter) {
    std::string buffer;
    for (const BundleEntry& entry : loose.list.entries) {
        if (!reading.wants(entry)) continue;
        BundleText text;
        std::size_t used = 0;
        const Path file = loose.folder / entry.name;
        if (entry.bytes > meter.MostOfFile()) {
            text.refusal = "it is larger than " + std::to_string(meter.MostOfFile() / 1024 / 1024) + " MB";
        } else if (Failure fault = ReadBehindIfThere(file, buffer, used)) {
            fault.file.clear();
            text.refusal = Sentence(fault);
        }
        text.bytes = std::string_view(buffer).substr(0, used);
        if (Failure fault = meter.Count(used)) return fault;
        if (!reading.take(entry, text)) break;
    }
    return {};
}

// One walk over an archive, from the entry of this number on, as far as it goes.
class ArchiveWalk {
  public:
    ArchiveWalk(const Path& from, const BundleReading& reading, Meter& meter)
        : from_(from), reading_(reading), meter_(meter) {}

    Failure Run() {
        for (std::size_t opened = 0; !isDone_; ++opened) {
            if (opened > kMostDamagedEntries) return Refusal(from_, "too many of its entries are damaged");
            if (Failure fault = WalkOn()) return fault;
        }
        return {};
    }

  private:
    Failure WalkOn() {
        ZipReader reader(from_);
        Failure fault = reader.Open();
        if (fault) return fault;
        for (std::size_t number = 0;; ++number) {
            archive_entry* const entry = reader.Next(fault);
            if (entry == nullptr) {
                isDone_ = true;
                return fault;
            }
            if (number < next_) continue;
            ++next_;
            bool isBroken = false;
            if ((fault = Hand(reader, EntryOf(entry), isBroken)) || isDone_ || isBroken) return fault;
        }
    }

    Failure Hand(ZipReader& reader, const BundleEntry& entry, bool& isBroken) {
        if (!reading_.wants(entry)) return {};
        Failure fault;
        BundleText text;
        text.refusal = reader.Read(buffer_, meter_.MostOfFile(), isBroken, fault);
        if (fault) return fault;
        if ((fault = meter_.Count(buffer_.size()))) return fault;
        if (text.refusal.empty()) text.bytes = buffer_;
        isDone_ = !reading_.take(entry, text);
        return {};
    }

    const Path& from_;
    const BundleReading& reading_;
    Meter& meter_;
    std::string buffer_;
    std::size_t next_ = 0;
    bool isDone_ = false;
};

}  // namespace

BundleList ListBundle(const Path& from, const BundleLimits& limits) {
    return IsLoose(from) ? LooseFiles(from, limits).list : ListArchive(from, limits);
}

Failure ReadBundle(const Path& from, const BundleReading& reading, const BundleLimits& limits) {
    Meter meter(from, limits);
    if (!IsLoose(from)) return ArchiveWalk(from, reading, meter).Run();
    const Loose loose = LooseFiles(from, limits);
    return loose.list.fault ? loose.list.fault : ReadLoose(loose, reading, meter);
}

}  // namespace brantlow
