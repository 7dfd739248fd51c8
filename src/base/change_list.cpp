#include "base/change_list.h"

#include <fcntl.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "base/file_calls.h"
#include "base/text.h"

namespace brantlow {

namespace {

using Entry = FileChange::Entry;

constexpr std::string_view kListMark = "brantlow change 1";

struct WasWord {
    Entry::Was was;
    std::string_view word;
};
constexpr std::array<WasWord, 3> kWasWords = {
    {{Entry::Was::Kept, "kept"}, {Entry::Was::Absent, "absent"}, {Entry::Was::Grown, "grown"}}};

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        constexpr unsigned char kDelete = 127;
        if (code < ' ' || code == kDelete || c == '%') {
            escaped += fmt::format("%{:02X}", code);
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    constexpr std::size_t kCode = 3;
    constexpr int kHexadecimal = 16;
    while (!text.empty()) {
        unsigned code = 0;
        const bool isCode =
            text.front() == '%' && text.size() >= kCode &&
            std::from_chars(text.data() + 1, text.data() + kCode, code, kHexadecimal).ec == std::errc();
        plain += isCode ? static_cast<char>(code) : text.front();
        text.remove_prefix(isCode ? kCode : 1);
    }
    return plain;
}

template <typename Number>
bool ReadNumber(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool ParseEntry(std::string_view line, const Path& appPath, Entry& entry) {
    constexpr std::size_t kParts = 4;
    const std::vector<std::string_view> parts = SplitAt(line, '\t');
    if (parts.size() != kParts) return false;
    const auto row = std::find_if(kWasWords.begin(), kWasWords.end(),
                                  [&](const WasWord& word) { return word.word == parts[0]; });
    if (row == kWasWords.end()) return false;
    entry.was = row->was;
    // An absolute path stands for itself.
    entry.path = (appPath / Unescaped(parts[3])).native();
    return ReadNumber(parts[1], entry.number) && ReadNumber(parts[2], entry.length);
}

bool IsMissing(const std::error_code& error) {
    return error == std::errc::no_such_file_or_directory;
}

std::error_code CutTo(const Path& file, const struct stat& status, std::uintmax_t length) {
    if (static_cast<std::uintmax_t>(status.st_size) <= length) return {};
    return ::truncate(file.c_str(), static_cast<off_t>(length)) == 0 ? std::error_code{} : LastError();
}

std::error_code MoveBack(const Path& copy, const Path& path, std::uintmax_t length) {
    if (::rename(copy.c_str(), path.c_str()) == 0) return {};
    if (errno != EXDEV) return LastError();
    const Path temporary = TemporaryIn(path.parent_path(), "back");
    ::unlink(temporary.c_str());
    std::error_code error = CopyBeginning(copy, length, temporary);
    if (!error && ::rename(temporary.c_str(), path.c_str()) != 0) error = LastError();
    if (error) ::unlink(temporary.c_str());
    return error;
}

std::error_code PutKeptBack(const Entry& entry, const Path& copy) {
    struct stat kept {};
    if (::stat(copy.c_str(), &kept) != 0) return IsMissing(LastError()) ? std::error_code{} : LastError();
    if (const auto error = CutTo(copy, kept, entry.length)) return error;
    struct stat now {};
    const bool isSame =
        ::stat(entry.path.c_str(), &now) == 0 && now.st_ino == kept.st_ino && now.st_dev == kept.st_dev;
    return isSame ? std::error_code{} : MoveBack(copy, entry.path, entry.length);
}

std::error_code PutEntryBack(const Entry& entry, const Path& folder) {
    switch (entry.was) {
        case Entry::Was::Kept:
            return PutKeptBack(entry, CopyOf(entry, folder));
        case Entry::Was::Absent:
            if (::unlink(entry.path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR) return {};
            return LastError();
        case Entry::Was::Grown:
            break;
    }
    struct stat status {};
    if (::stat(entry.path.c_str(), &status) != 0) return LastError();
    return CutTo(entry.path, status, entry.length);
}

// The path below the application folder, or the whole one where it lies elsewhere.
std::string_view NearName(std::string_view path, const Path& appPath) {
    std::string_view folder = appPath.native();
    while (folder.ends_with('/')) folder.remove_suffix(1);
    const bool isBelow = !folder.empty() && path.size() > folder.size() && path.starts_with(folder) &&
                         path[folder.size()] == '/';
    if (!isBelow) return path;
    std::string_view name = path.substr(folder.size());
    name.remove_prefix(std::min(name.find_first_not_of('/'), name.size()));
    const bool leadsOut = name == ".." || name.starts_with("../");
    return name.empty() || leadsOut ? path : name;
}

}  // namespace

std::string ChangeListHead(std::string_view when, std::string_view what) {
    return fmt::format("{}\t{}\t{}\n", kListMark, Escaped(when), Escaped(what));
}

std::string ChangeListLine(const Entry& entry, const Path& appPath) {
    const auto row = std::find_if(kWasWords.begin(), kWasWords.end(),
                                  [&](const WasWord& word) { return word.was == entry.was; });
    return fmt::format(FMT_COMPILE("{}\t{}\t{}\t{}\n"), row->word, entry.number, entry.length,
                       Escaped(NearName(entry.path, appPath)));
}

ChangeList ParseChangeList(std::string_view text, const Path& appPath) {
    ChangeList list;
    text = text.substr(0, text.rfind('\n') + 1);
    bool isHead = true;
    for (const std::string_view line : SplitAt(text, '\n')) {
        Entry entry;
        if (!isHead) {
            if (ParseEntry(line, appPath, entry)) list.entries.push_back(std::move(entry));
            continue;
        }
        const std::vector<std::string_view> parts = SplitAt(line, '\t');
        constexpr std::size_t kHeadParts = 3;
        if (parts.size() != kHeadParts || parts[0] != kListMark) return list;
        list.when = Unescaped(parts[1]);
        list.what = Unescaped(parts[2]);
        isHead = false;
    }
    return list;
}

std::string ChangeSummaryLine(const ChangeSummary& summary) {
    return fmt::format("{}\t{}\t{}\t{}\t{}\n", summary.number, Escaped(summary.when), Escaped(summary.what),
                       summary.files, summary.bytes);
}

std::optional<ChangeSummary> ReadChangeSummary(const Path& folder, Failure* unread) {
    const Path file = folder / kChangeSummary;
    const ReadResult read = ReadWholeFile(file);
    const std::string& text = read.bytes;
    if (unread != nullptr && read.outcome == ReadOutcome::Failed && !*unread)
        *unread = FailedTo(FailureKind::Read, file, read.error);
    const std::vector<std::string_view> parts =
        SplitAt(std::string_view(text).substr(0, text.find('\n')), '\t');
    constexpr std::size_t kParts = 5;
    ChangeSummary summary;
    const bool isWhole = parts.size() == kParts && ReadNumber(parts[0], summary.number) &&
                         ReadNumber(parts[3], summary.files) && ReadNumber(parts[4], summary.bytes);
    if (!isWhole) return std::nullopt;
    summary.when = Unescaped(parts[1]);
    summary.what = Unescaped(parts[2]);
    summary.folder = folder;
    return summary;
}

std::vector<ChangeSummary> ReadChangeSummaries(const Path& undoFolder, Failure* unread) {
    std::vector<ChangeSummary> changes;
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(undoFolder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        if (it->path().filename().native().starts_with(kOpenChange)) continue;
        if (auto summary = ReadChangeSummary(it->path(), unread)) changes.push_back(std::move(*summary));
    }
    if (unread != nullptr && error && error != std::errc::no_such_file_or_directory)
        *unread = FailedTo(FailureKind::List, undoFolder, error);
    std::sort(changes.begin(), changes.end(),
              [](const ChangeSummary& a, const ChangeSummary& b) { return a.number > b.number; });
    return changes;
}

Path CopyOf(const Entry& entry, const Path& folder) {
    return folder / std::to_string(entry.number);
}

Failure PutBack(const std::vector<Entry>& entries, const Path& folder) {
    Failure first;
    std::set<Path> folders;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        KeepFirst(first, FailedTo(FailureKind::Write, entry->path, PutEntryBack(*entry, folder)));
        folders.insert(Path(entry->path).parent_path());
    }
    first.isHalfDone = static_cast<bool>(first);
    // The files are back; a folder that cannot be flushed was told when the change failed.
    for (const Path& changed : folders) static_cast<void>(SyncFolder(changed));
    return first;
}

void RemoveChangeFolder(const Path& folder) {
    for (const std::string_view name : {kChangeSummary, kChangeList}) ::unlink((folder / name).c_str());
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::error_code CopyBeginning(const Path& from, std::uintmax_t length, const Path& to) {
    const ReadResult read = ReadWholeFile(from);
    if (read.outcome == ReadOutcome::Missing) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (read.outcome == ReadOutcome::Failed) return read.error;
    // A copy that has become shorter is no copy.
    if (read.bytes.size() < length) return std::make_error_code(std::errc::io_error);
    struct stat status {};
    if (::stat(from.c_str(), &status) != 0) return LastError();
    constexpr mode_t kPermissions = 0777;
    return WriteNewFile(to, std::string_view(read.bytes).substr(0, length), Flush::ToDisk,
                        status.st_mode & kPermissions);
}

}  // namespace brantlow
