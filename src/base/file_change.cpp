#include "base/file_change.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "base/change_list.h"
#include "base/file_calls.h"
#include "base/undo_store.h"

namespace brantlow {

namespace {

// Up to here files are flushed one by one, beyond with all that their file system has to write.
constexpr std::size_t kFlushedOneByOne = 16;

// While so many files grow one flush of them can begin, beside those that follow.
constexpr std::size_t kGrownPerFlush = 500;

bool IsThere(const Path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

Failure NotWritten(const Path& file, const std::error_code& cause) {
    return FailedTo(FailureKind::Write, file, cause);
}

Failure NotRead(const Path& file, const std::error_code& cause) {
    return FailedTo(FailureKind::Read, file, cause);
}

Failure NotDeleted(const Path& file, const std::error_code& cause) {
    return FailedTo(FailureKind::Delete, file, cause);
}

// A second name of the file where the file system has such; else a copy of its first bytes.
std::error_code LinkOrCopy(const Path& from, std::uintmax_t length, const Path& to) {
    if (::link(from.c_str(), to.c_str()) == 0) return {};
    return CopyBeginning(from, length, to);
}

// The file as it was before a change without a list; where the file system has no second names, it stays new.
std::error_code PutFormerBack(const Path& path, bool isNew, const Path& former) {
    if (!isNew && former.empty()) return std::make_error_code(std::errc::operation_not_supported);
    const int failed = isNew ? ::unlink(path.c_str()) : ::rename(former.c_str(), path.c_str());
    return failed != 0 ? LastError() : std::error_code{};
}

// A name for the folder of a change that is done.
std::string FolderName(std::string_view when, std::string_view what) {
    constexpr std::size_t kMostBytes = 120;
    std::string name = std::string(when).append(1, '-').append(what).substr(0, kMostBytes);
    for (char& c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '/' || c == '\\' || code < ' ') c = '-';
    }
    std::erase(name, ':');
    return name;
}

// Renames `folder` to its final name; a number tells changes of one second apart.
std::error_code RenameTo(const Path& undoFolder, const std::string& name, Path& folder) {
    constexpr int kMostTries = 1000;
    for (int tried = 1; tried <= kMostTries; ++tried) {
        const Path target = undoFolder / (tried == 1 ? name : name + " (" + std::to_string(tried) + ")");
        if (IsThere(target)) continue;
        if (::rename(folder.c_str(), target.c_str()) != 0) return LastError();
        folder = target;
        return {};
    }
    return std::make_error_code(std::errc::file_exists);
}

// Makes the folder of `path` where it is `own` and missing; what hinders that is told by who writes there.
void MakeOwnFolder(const Path& path, const Path& own) {
    if (own.empty() || path.parent_path() != own) return;
    std::error_code ignored;
    std::filesystem::create_directories(own, ignored);
}

}  // namespace

FileChange::FileChange(ChangePlace place, std::string what, ChangeKeeps keeps)
    : place_(std::move(place)), what_(std::move(what)), keeps_(keeps) {}

FileChange::~FileChange() {
    static_cast<void>(TakeBack());
}

Failure FileChange::Write(const Path& path, std::string_view bytes) {
    MakeOwnFolder(path, place_.ownFolder);
    WriteTarget target;
    if (const auto error = FindWriteTarget(path, target)) return NotWritten(path, error);
    deleted_.erase(target.path.native());
    const auto found = stagedAt_.find(target.path.native());
    if (found != stagedAt_.end()) ::unlink(staged_[found->second].temporary.c_str());
    constexpr int kMostTries = 1000;
    for (int tried = 0;; ++tried) {
        const Path temporary = TemporaryIn(target.path.parent_path(), "c" + std::to_string(nextTemporary_++));
        const auto error = WriteNewFile(temporary, bytes, Flush::Later, target.mode);
        // Another change of this process is at work in the folder.
        if (error == std::errc::file_exists && tried < kMostTries) continue;
        if (error) return NotWritten(path, error);
        if (found != stagedAt_.end()) {
            staged_[found->second].temporary = temporary.native();
        } else {
            stagedAt_.emplace(target.path.native(), staged_.size());
            staged_.push_back({target.path.native(), temporary.native(), !target.exists});
        }
        return {};
    }
}

Failure FileChange::Delete(const Path& path) {
    if (NamesNoFile(path)) return {};
    const auto found = stagedAt_.find(path.native());
    if (found != stagedAt_.end()) {
        ::unlink(staged_[found->second].temporary.c_str());
        staged_[found->second].temporary.clear();
        stagedAt_.erase(found);
    }
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return errno == ENOENT || errno == ENOTDIR ? Failure{} : NotDeleted(path, LastError());
    }
    if (S_ISDIR(status.st_mode)) return NotDeleted(path, std::make_error_code(std::errc::is_a_directory));
    deleted_.insert(path.native());
    return {};
}

Path FileChange::Where(const Path& path) const {
    const auto found = stagedAt_.find(path.native());
    return found == stagedAt_.end() ? path : Path(staged_[found->second].temporary);
}

Failure FileChange::WillGrow(const Path& path) {
    if (stagedAt_.contains(path.native()) || grown_.contains(path.native())) return {};
    if (const Failure fault = OpenJournal()) return fault;
    struct stat status {};
    Entry entry{Entry::Was::Absent, 0, 0, path.native()};
    std::optional<std::uint64_t> device;
    if (::stat(path.c_str(), &status) == 0) {
        entry.was = Entry::Was::Grown;
        entry.length = static_cast<std::uintmax_t>(status.st_size);
        device = status.st_dev;
    } else if (errno != ENOENT) {
        return NotRead(path, LastError());
    } else {
        MakeOwnFolder(path, place_.ownFolder);
    }
    if (const Failure fault = Note(ChangeListLine(entry, place_.appPath))) return fault;
    TakeGrown(std::move(entry), device);
    return {};
}

Failure FileChange::WillGrow(std::span<const Growth> files) {
    if (files.empty()) return {};
    if (const Failure fault = OpenJournal()) return fault;
    const auto entryOf = [](const Growth& file) {
        return Entry{Entry::Was::Grown, 0, file.before.length, file.path->native()};
    };
    std::string lines;
    for (const Growth& file : files) lines += ChangeListLine(entryOf(file), place_.appPath);
    if (const Failure fault = Note(lines)) return fault;
    for (const Growth& file : files) TakeGrown(entryOf(file), file.before.device);
    return {};
}

bool FileChange::Touches(const Path& path) const {
    const std::string& name = path.native();
    return stagedAt_.contains(name) || grown_.contains(name) || deleted_.contains(name);
}

void FileChange::TakeGrown(Entry entry, std::optional<std::uint64_t> device) {
    grown_.emplace(entry.path, Grown{entry.length, device});
    if (grown_.size() % kGrownPerFlush == 0) ahead_.Begin(Path(entry.path).parent_path());
    entries_.push_back(std::move(entry));
}

Failure FileChange::Commit() {
    std::erase_if(staged_, [](const Staged& file) { return file.temporary.empty(); });
    if (!HasWork()) return TakeBack();
    if (const Failure fault = SyncStaged()) return Failed(fault);
    if (NeedsJournal()) {
        if (const Failure fault = KeepAll()) return Failed(fault);
    }
    if (const Failure fault = PutInPlace()) return Failed(fault);
    if (const Failure fault = SyncFolders()) return Failed(fault);
    if (const Failure fault = Close()) return Failed(fault);
    DropFormer();
    staged_.clear();
    stagedAt_.clear();
    deleted_.clear();
    grown_.clear();
    entries_.clear();
    journal_.clear();
    return {};
}

Failure FileChange::TakeBack() {
    Failure stays;
    ahead_.Finish();
    for (const Staged& file : staged_) {
        // Without a list a file is put back by its second name.
        if (!file.isInPlace || !journal_.empty()) continue;
        const std::error_code error = PutFormerBack(file.path, file.isNew, file.former);
        if (error && !stays) stays = FailedTo(FailureKind::Write, file.path, error);
    }
    DropTemporaries();
    deleted_.clear();
    grown_.clear();
    if (list_ >= 0) ::close(std::exchange(list_, -1));
    if (journal_.empty()) return stays;
    const Failure fault = PutBack(entries_, journal_);
    entries_.clear();
    // A list that could not be followed stays for the next recovery.
    if (!fault) RemoveChangeFolder(journal_);
    journal_.clear();
    return fault;
}

Failure FileChange::Failed(Failure fault) {
    fault.isHalfDone = static_cast<bool>(TakeBack());
    return fault;
}

void FileChange::DropTemporaries() {
    for (const Staged& file : staged_) {
        if (!file.isInPlace && !file.temporary.empty()) ::unlink(file.temporary.c_str());
    }
    DropFormer();
    staged_.clear();
    stagedAt_.clear();
}

void FileChange::DropFormer() {
    for (const Staged& file : staged_) {
        if (!file.former.empty()) ::unlink(file.former.c_str());
    }
}

bool FileChange::NeedsJournal() const {
    return keeps_ != ChangeKeeps::Nothing;
}

Failure FileChange::OpenJournal() {
    if (list_ >= 0) return {};
    const Path undoFolder = place_.UndoFolder();
    std::error_code error;
    std::filesystem::create_directories(undoFolder, error);
    if (error) return FailedTo(FailureKind::Make, undoFolder, error);
    for (int number = 1;; ++number) {
        std::string name(kOpenChange);
        journal_ = undoFolder / name.append(std::to_string(::getpid()) + "-" + std::to_string(number));
        constexpr mode_t kDefaultMode = 0777;
        if (::mkdir(journal_.c_str(), kDefaultMode) == 0) break;
        if (errno == EEXIST) continue;
        error = LastError();
        return FailedTo(FailureKind::Make, std::exchange(journal_, Path()), error);
    }
    const Path list = journal_ / kChangeList;
    constexpr mode_t kFileMode = 0666;
    list_ = ::open(list.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, kFileMode);
    return list_ < 0 ? NotWritten(list, LastError()) : Note(ChangeListHead(place_.when, what_));
}

Failure FileChange::Note(const std::string& lines) {
    return NotWritten(journal_ / kChangeList, WriteAll(list_, lines));
}

Failure FileChange::SyncStaged() {
    if (const std::error_code error = ahead_.Finish())
        return NotWritten(Path(grown_.begin()->first).parent_path(), error);
    return staged_.size() + grown_.size() <= kFlushedOneByOne ? SyncOneByOne() : SyncDevices();
}

Failure FileChange::SyncOneByOne() const {
    const auto sync = [](const Path& file) {
        const std::error_code error = SyncFile(file);
        return error ? NotWritten(file, error) : Failure{};
    };
    for (const Staged& file : staged_)
        if (Failure fault = sync(file.temporary)) return fault;
    for (const auto& [path, grown] : grown_)
        if (Failure fault = sync(path)) return fault;
    return {};
}

// Of many files the file systems are flushed, one each, by a file of theirs.
Failure FileChange::SyncDevices() const {
    std::set<std::uint64_t> done;
    const auto sync = [&done](const Path& file, const std::optional<std::uint64_t>& device) {
        struct stat status {};
        if (!device && ::stat(file.c_str(), &status) != 0) return NotWritten(file, LastError());
        if (!done.insert(device.value_or(status.st_dev)).second) return Failure{};
        const std::error_code error = SyncFileSystem(file);
        return error ? NotWritten(file.parent_path(), error) : Failure{};
    };
    for (const Staged& file : staged_)
        if (Failure fault = sync(file.temporary, std::nullopt)) return fault;
    for (const auto& [path, grown] : grown_) {
        if (grown.device && done.contains(*grown.device)) continue;
        if (Failure fault = sync(path, grown.device)) return fault;
    }
    return {};
}

Failure FileChange::Keep(const Path& path, std::string& lines) {
    if (path.filename() == kKeysFileName) return {};
    const auto grown = grown_.find(path.native());
    Entry entry{Entry::Was::Absent, 0, 0, path.native()};
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0) {
        if (!S_ISREG(status.st_mode)) return NotRead(path, std::make_error_code(std::errc::is_a_directory));
        entry.was = Entry::Was::Kept;
        entry.number = entries_.size() + 1;
        entry.length =
            grown == grown_.end() ? static_cast<std::uintmax_t>(status.st_size) : grown->second.length;
        // What cannot be read could not be brought back.
        const Descriptor readable(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!readable.IsOpen()) return NotRead(path, LastError());
        const Path copy = CopyOf(entry, journal_);
        if (const auto error = LinkOrCopy(path, entry.length, copy)) return NotWritten(copy, error);
    } else if (errno != ENOENT) {
        return NotRead(path, LastError());
    }
    lines += ChangeListLine(entry, place_.appPath);
    entries_.push_back(std::move(entry));
    return {};
}

Failure FileChange::KeepAll() {
    if (const Failure fault = OpenJournal()) return fault;
    std::string lines;
    for (const Staged& file : staged_) {
        if (const Failure fault = Keep(file.path, lines)) return fault;
    }
    for (const std::string& path : deleted_) {
        if (const Failure fault = Keep(path, lines)) return fault;
    }
    for (const Path& path : alsoKept_) {
        if (const Failure fault = Keep(path, lines)) return fault;
    }
    if (const Failure fault = Note(lines)) return fault;
    if (::fdatasync(list_) != 0) return NotWritten(journal_ / kChangeList, LastError());
    for (const Path& folder : {journal_, place_.UndoFolder()}) {
        if (const auto error = SyncFolder(folder)) return NotWritten(folder, error);
    }
    return {};
}

Failure FileChange::PutInPlace() {
    const bool hasList = !journal_.empty();
    for (Staged& file : staged_) {
        if (!hasList) {
            const std::string former = file.temporary + "o";
            if (::link(file.path.c_str(), former.c_str()) == 0) file.former = former;
        }
        if (::rename(file.temporary.c_str(), file.path.c_str()) != 0)
            return NotWritten(file.path, LastError());
        file.isInPlace = true;
    }
    for (const std::string& path : deleted_) {
        if (::unlink(path.c_str()) != 0 && errno != ENOENT) return NotDeleted(path, LastError());
    }
    return {};
}

Failure FileChange::SyncFolders() const {
    std::set<Path> folders;
    for (const Staged& file : staged_) folders.insert(Path(file.path).parent_path());
    for (const std::string& path : deleted_) folders.insert(Path(path).parent_path());
    std::string_view before;
    for (const auto& [path, grown] : grown_) {
        // Most stand in one folder.
        const std::string_view folder = std::string_view(path).substr(0, path.rfind('/') + 1);
        if (folder != before) folders.insert(Path(path).parent_path());
        before = folder;
    }
    for (const Path& folder : folders) {
        if (const auto error = SyncFolder(folder)) return NotWritten(folder, error);
    }
    return {};
}

Failure FileChange::Close() {
    if (list_ < 0) return {};
    if (::close(std::exchange(list_, -1)) != 0) return NotWritten(journal_ / kChangeList, LastError());
    if (keeps_ != ChangeKeeps::ForUndo) {
        RemoveChangeFolder(journal_);
        return {};
    }
    const Path undoFolder = place_.UndoFolder();
    Failure unread;
    const std::vector<ChangeSummary> before = ReadChangeSummaries(undoFolder, &unread);
    if (unread) return unread;
    ChangeSummary summary;
    summary.number = before.empty() ? 1 : before.front().number + 1;
    summary.when = place_.when;
    summary.what = what_;
    summary.files = entries_.size();
    for (const Entry& entry : entries_) summary.bytes += entry.was == Entry::Was::Kept ? entry.length : 0;
    constexpr mode_t kFileMode = 0666;
    const Path file = journal_ / kChangeSummary;
    auto error = WriteNewFile(file, ChangeSummaryLine(summary), Flush::ToDisk, kFileMode);
    if (error) return NotWritten(file, error);
    error = RenameTo(undoFolder, FolderName(summary.when, what_), journal_);
    if (!error) error = SyncFolder(undoFolder);
    if (error) return NotWritten(undoFolder, error);
    DropOldChanges(undoFolder, place_.limits);
    return {};
}

}  // namespace brantlow
