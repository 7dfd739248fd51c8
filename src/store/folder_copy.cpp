#include "store/folder_copy.h"

#include <string_view>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "shell/kept_folders.h"

namespace brantlow {

namespace {

// Adds the names of the files in the kept folder, below it; makes the folder for them.
Failure AddKept(std::string_view folder, const Path& from, const Path& to, std::vector<std::string>& names) {
    std::vector<std::string> kept;
    if (Failure failure = ListFiles(from / folder, kept)) return failure;
    if (kept.empty()) return {};
    std::error_code ignored;
    std::filesystem::create_directory(to / folder, ignored);
    for (const std::string& name : kept) {
        if (!IsTemporaryName(name)) names.push_back((Path(folder) / name).string());
    }
    return {};
}

// Unfinished files are no part of a folder, and access keys stay where they are.
bool IsCopied(std::string_view name) {
    return !IsTemporaryName(name) && name != kKeysFileName;
}

Failure PrepareCopy(const Path& from, const Path& to, FileChange& change, bool& isRead) {
    std::string bytes;
    Failure failure = ReadNeeded(from, bytes);
    isRead = !failure;
    return failure ? failure : change.Write(to, bytes);
}

// The files of one copying on their way.
class FolderWalk {
  public:
    FolderWalk(FileChange& change, CopyGroups groups, const CopyRun& run)
        : change_(change), groups_(groups), run_(run) {}

    // False when nothing further is to be copied.
    bool Take(const Path& from, const Path& to) {
        bool isRead = false;
        const Failure fault = PrepareCopy(from, to, change_, isRead);
        if (!fault) {
            ++prepared_;
        } else {
            CountFailed(1, fault);
        }
        // One change of all files: where one cannot be written, none is.
        if (fault && isRead && groups_ == CopyGroups::AllInOne) return TakeBack();
        constexpr std::size_t kGroup = 256;
        if (groups_ == CopyGroups::Several && prepared_ >= kGroup) Commit();
        return true;
    }

    void Commit() {
        const std::size_t prepared = std::exchange(prepared_, 0);
        if (const Failure fault = run_.commit ? run_.commit(change_) : change_.Commit()) {
            CountFailed(prepared, fault);
        } else {
            copy_.copied += prepared;
        }
    }

    void Stop() {
        copy_.stopped = true;
        if (groups_ == CopyGroups::Several) return Commit();
        prepared_ = 0;
        if (const Failure stays = change_.TakeBack()) CountFailed(1, stays);
    }

    std::size_t Walked() const { return copy_.copied + copy_.failed + prepared_; }
    FolderCopy Result() { return std::move(copy_); }

  private:
    void CountFailed(std::size_t count, const Failure& fault) {
        if (copy_.failed == 0) copy_.error = fault;
        copy_.failed += count;
    }

    bool TakeBack() {
        if (change_.TakeBack()) copy_.error.isHalfDone = true;
        copy_.failed += std::exchange(prepared_, 0);
        return false;
    }

    FileChange& change_;
    CopyGroups groups_;
    const CopyRun& run_;
    std::size_t prepared_ = 0;
    FolderCopy copy_;
};

}  // namespace

FolderCopy CopyFolderFiles(const Path& from, const Path& to, FileChange& change, CopyGroups groups,
                           const CopyRun& run) {
    std::error_code ignored;
    // No more than the last folder: the ones above are missing when the drive is.
    std::filesystem::create_directory(to, ignored);
    std::vector<std::string> names;
    Failure failure = ListFiles(from, names);
    for (const std::string_view folder : kKeptFolders) {
        if (!failure) failure = AddKept(folder, from, to, names);
    }
    if (failure) {
        FolderCopy nothing;
        nothing.failed = 1;
        nothing.error = failure;
        return nothing;
    }
    std::erase_if(names, [](const std::string& name) { return !IsCopied(name); });
    FolderWalk walk(change, groups, run);
    for (const std::string& name : names) {
        const bool goesOn = walk.Take(from / name, to / name);
        if (!goesOn) return walk.Result();
        const double share = static_cast<double>(walk.Walked()) / static_cast<double>(names.size());
        if (run.proceed && !run.proceed(share)) {
            walk.Stop();
            return walk.Result();
        }
    }
    walk.Commit();
    return walk.Result();
}

}  // namespace brantlow
