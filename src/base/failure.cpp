#include "base/failure.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace brantlow {

namespace {

struct FailureWords {
    FailureKind kind;
    std::string_view words;
};
// Behind the file's name and a colon.
constexpr std::array<FailureWords, 6> kFailureWords = {{{FailureKind::Read, "cannot be read"},
                                                        {FailureKind::List, "cannot be looked through"},
                                                        {FailureKind::Write, "cannot be saved"},
                                                        {FailureKind::Delete, "cannot be deleted"},
                                                        {FailureKind::Make, "cannot be made"},
                                                        {FailureKind::Lock, "cannot be locked"}}};

// Of a file that another program changed and that the person would not have written over.
constexpr std::string_view kLeftWords = "was not saved and stays as the other program left it";

bool IsLeftToOthers(const Failure& failure) {
    return failure.kind == FailureKind::Write && failure.cause == std::errc::operation_canceled;
}

std::string_view WordsOf(FailureKind kind) {
    for (const FailureWords& row : kFailureWords) {
        if (row.kind == kind) return row.words;
    }
    return {};
}

}  // namespace

Failure Failure::Of(std::string_view whose) && {
    if (ticker.empty()) ticker = whose;
    return std::move(*this);
}

Failure Failure::About(std::string_view further) && {
    if (text.empty()) text = further;
    return std::move(*this);
}

Failure FailedTo(FailureKind kind, const Path& file, const std::error_code& cause) {
    if (!cause) return {};
    return {.kind = kind, .file = file, .cause = cause};
}

Failure FailedBecause(std::string text) {
    return {.kind = FailureKind::Other, .text = std::move(text)};
}

void KeepFirst(Failure& first, const Failure& next) {
    if (!first) first = next;
}

std::string Sentence(const Failure& failure) {
    if (!failure) return {};
    std::string sentence = failure.file.string();
    if (failure.line > 0) sentence += ", line " + std::to_string(failure.line);
    const bool isLeft = IsLeftToOthers(failure);
    const std::string_view words = isLeft ? kLeftWords : WordsOf(failure.kind);
    if (!sentence.empty() && !(words.empty() && failure.text.empty())) sentence += ": ";
    sentence += words;
    if (failure.cause && !isLeft) sentence += " (" + failure.cause.message() + ")";
    if (!words.empty() && !failure.text.empty()) sentence += "; ";
    return sentence + failure.text;
}

std::string CannotBeSaved(const Path& file, const std::error_code& cause) {
    return Sentence(FailedTo(FailureKind::Write, file, cause));
}

std::string FailedSentence(std::string_view what, Failure failure) {
    if (failure.isHalfDone) {
        failure =
            std::move(failure).About("some files are changed, which the next writing command takes back");
    }
    return std::string(what).append(" failed: ").append(Sentence(failure));
}

std::string ChangeSentence(std::string_view what, Failure failure) {
    if (!failure.isHalfDone) failure = std::move(failure).About("nothing was changed");
    return FailedSentence(what, std::move(failure));
}

Failure ReadIfThere(const Path& file, std::string& bytes) {
    ReadResult read = ReadWholeFile(file);
    bytes = std::move(read.bytes);
    return read.outcome == ReadOutcome::Failed ? FailedTo(FailureKind::Read, file, read.error) : Failure{};
}

Failure ReadBehindIfThere(const Path& file, std::string& buffer, std::size_t& used) {
    if (ReadIntoBuffer(file, buffer, used) != ReadOutcome::Failed) return {};
    // Once more, for the reason; what comes now is as good.
    const ReadResult again = ReadWholeFile(file);
    if (again.outcome == ReadOutcome::Failed) return FailedTo(FailureKind::Read, file, again.error);
    buffer.resize(std::max(buffer.size(), used + again.bytes.size() + 1));
    again.bytes.copy(buffer.data() + used, again.bytes.size());
    used += again.bytes.size();
    return {};
}

Failure ReadNeeded(const Path& file, std::string& bytes) {
    ReadResult read = ReadWholeFile(file);
    bytes = std::move(read.bytes);
    const bool isMissing = read.outcome == ReadOutcome::Missing;
    return FailedTo(FailureKind::Read, file,
                    isMissing ? std::make_error_code(std::errc::no_such_file_or_directory) : read.error);
}

Failure ListFiles(const Path& folder, std::vector<std::string>& names) {
    names.clear();
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(folder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError)) names.push_back(it->path().filename().string());
        // A name that went meanwhile, or a link to nothing, is no file.
        if (typeError && typeError != std::errc::no_such_file_or_directory) {
            return FailedTo(FailureKind::Read, it->path(), typeError);
        }
    }
    if (error && error != std::errc::no_such_file_or_directory)
        return FailedTo(FailureKind::List, folder, error);
    std::sort(names.begin(), names.end());
    return {};
}

Failure DeleteIfThere(const Path& file) {
    if (::unlink(file.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR) return {};
    return FailedTo(FailureKind::Delete, file, {errno, std::generic_category()});
}

}  // namespace brantlow
