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

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

// A name that would lie outside the folder to which the archive is unpacked.
bool LeadsOut(std::string_view name) {
    if (name.empty() || name.front() == '/' || name.front() == '\\') return true;
    if (name.size() > 1 && name[1] == ':') return true;
    std::string parts(name);
    std::replace(parts.begin(), parts.end(), '\\', '/');
    const std::vector<std::string_view> pieces = SplitAt(parts, '/');
    return std::find(pieces.begin(), pieces.end(), "..") != pieces.end();
}

std::string TooLarge(std::uintmax_t most) {
    return "it is larger than " + std::to_string(most / 1024 / 1024) + " MB";
}

}  // namespace

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

    // The bytes of the entry in hand, as the first `used` of a buffer that grows. `isBroken` that no further
    // entry can be read from here.
    std::string Read(std::string& buffer, std::size_t& used, std::uintmax_t most, bool& isBroken,
                     Failure& fault) {
        used = 0;
        for (;;) {
            if (buffer.size() < used + kBlockBytes) buffer.resize(used + kBlockBytes * 4);
            const la_ssize_t got =
                archive_read_data(archive_.get(), buffer.data() + used, buffer.size() - used);
            if (got < 0) return Damage(got, isBroken, fault);
            used += static_cast<std::size_t>(got);
            if (used > most) return TooLarge(most);
            if (got == 0) return {};
        }
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
        return BundleRefusal(from_, "is no whole zip archive (" + Words() + ")");
    }

    Failure Refused(archive_entry* entry) const {
        const std::string name = NameOf(entry);
        if (LeadsOut(name)) return BundleRefusal(from_, "its entry '" + name + "' leads out of it");
        const bool isLink =
            archive_entry_symlink(entry) != nullptr || archive_entry_hardlink(entry) != nullptr;
        const auto type = archive_entry_filetype(entry);
        if (isLink || (type != AE_IFREG && type != AE_IFDIR)) {
            return BundleRefusal(from_, "its entry '" + name + "' is no file");
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

namespace {

BundleEntry EntryOf(archive_entry* entry) {
    const la_int64_t bytes = archive_entry_size(entry);
    return {ZipReader::NameOf(entry), bytes > 0 ? static_cast<std::uintmax_t>(bytes) : 0};
}

Failure TooMany(const Path& from, const BundleLimits& limits) {
    return BundleRefusal(from, "holds more than " + std::to_string(limits.files) + " files");
}

// Everything below `folder`, sorted by name, so that a run does not hang on the order of the disk.
BundleList ListFolder(const Path& folder, const BundleLimits& limits) {
    BundleList list;
    list.folder = folder;
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

// The file by itself, or the files of the folder.
BundleList LooseFiles(const Path& from, const BundleLimits& limits) {
    if (fs::is_directory(from)) return ListFolder(from, limits);
    std::error_code unknown;
    const std::uintmax_t bytes = fs::file_size(from, unknown);
    BundleList list;
    list.entries = {{from.filename().string(), unknown ? 0 : bytes}};
    list.folder = from.has_parent_path() ? from.parent_path() : Path(".");
    return list;
}

bool IsLoose(const Path& from) {
    std::error_code unknown;
    return fs::is_directory(from, unknown) || (fs::is_regular_file(from, unknown) && IsText(from));
}

}  // namespace

Failure BundleRefusal(const Path& from, std::string why) {
    Failure failure;
    failure.kind = FailureKind::Other;
    failure.file = from;
    failure.text = std::move(why);
    return failure;
}

BundleList ListBundle(const Path& from, const BundleLimits& limits) {
    return IsLoose(from) ? LooseFiles(from, limits) : ListArchive(from, limits);
}

BundleReader::BundleReader(const Path& from, const BundleList& list, const BundleLimits& limits)
    : from_(from), list_(list), limits_(limits) {}

BundleReader::~BundleReader() = default;

BundleText BundleReader::Read(std::size_t place, Failure& fault) {
    used_ = 0;
    BundleText text;
    if (list_.folder.empty()) {
        text = ReadPacked(place, fault);
    } else {
        text.refusal = ReadLoose(list_.entries[place]);
    }
    if (text.refusal.empty()) text.bytes = std::string_view(buffer_).substr(0, used_);
    return text;
}

std::string BundleReader::ReadLoose(const BundleEntry& entry) {
    if (entry.bytes > limits_.bytesOfFile) return TooLarge(limits_.bytesOfFile);
    Failure fault = ReadBehindIfThere(list_.folder / entry.name, buffer_, used_);
    fault.file.clear();
    return fault ? Sentence(fault) : std::string();
}

BundleText BundleReader::ReadPacked(std::size_t place, Failure& fault) {
    BundleText text;
    if ((fault = GoTo(place))) return text;
    text.refusal = zip_->Read(buffer_, used_, limits_.bytesOfFile, text.isBroken, fault);
    if (text.isBroken) zip_.reset();
    return text;
}

Failure BundleReader::GoTo(std::size_t place) {
    Failure fault;
    if (!zip_) {
        zip_ = std::make_unique<ZipReader>(from_);
        next_ = 0;
        if ((fault = zip_->Open())) return fault;
    }
    archive_entry* entry = nullptr;
    while (next_ <= place) {
        entry = zip_->Next(fault);
        if (fault) return fault;
        if (entry == nullptr) break;
        ++next_;
    }
    const bool isListed = entry != nullptr && ZipReader::NameOf(entry) == list_.entries[place].name;
    return isListed ? Failure() : BundleRefusal(from_, "was changed while it was read");
}

}  // namespace brantlow
