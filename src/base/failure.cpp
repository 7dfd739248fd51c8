#include "base/failure.h"

#include <array>
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
    return {kind, file, 0, {}, {}, cause};
}

Failure FailedBecause(std::string text) {
    return {FailureKind::Other, {}, 0, {}, std::move(text), {}};
}

void KeepFirst(Failure& first, const Failure& next) {
    if (!first) first = next;
}

std::string Sentence(const Failure& failure) {
    if (!failure) return {};
    std::string sentence = failure.file.string();
    if (failure.line > 0) sentence += ", line " + std::to_string(failure.line);
    const std::string_view words = WordsOf(failure.kind);
    if (!sentence.empty() && !(words.empty() && failure.text.empty())) sentence += ": ";
    sentence += words;
    if (failure.cause) sentence += " (" + failure.cause.message() + ")";
    if (!words.empty() && !failure.text.empty()) sentence += "; ";
    return sentence + failure.text;
}

Failure ReadIfThere(const Path& file, std::string& bytes) {
    ReadResult read = ReadWholeFile(file);
    bytes = std::move(read.bytes);
    return read.outcome == ReadOutcome::Failed ? FailedTo(FailureKind::Read, file, read.error) : Failure{};
}

}  // namespace brantlow
