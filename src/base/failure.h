// Why something could not be done, as a value: what was tried, on which file (and line), for which ticker,
// and what the system said. The routine that meets the failure fills in what it knows, the ones above add
// what they know (About, Of), and the last one, a window or a command, makes the sentence. Every sentence
// about a file comes from the one table in failure.cpp, so that windows and commands say the same thing in
// the same words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files.h"

namespace brantlow {

// What was tried.
enum class FailureKind {
    None,
    Read,    // a file that is there could not be read
    List,    // a folder could not be looked through
    Write,   // a file could not be written; the old one stands
    Delete,  // a file could not be deleted
    Make,    // a file or folder could not be made
    Lock,    // a file could not be locked
    Other,   // `text` says it all
};

struct Failure {
    FailureKind kind = FailureKind::None;
    Path file = {};        // as the person is to read it; a full path unless the place is known to everybody
    std::size_t line = 0;  // of the file, from 1; 0 where no line is meant
    std::string ticker = {};     // whose data it was; empty where it was nobody's
    std::string text = {};       // what else is to be said, without a full stop: "the import file stays"
    std::error_code cause = {};  // what the system said
    // Of a change of files: it could not be put back either, so that some of them are new and some old until
    // the next recovery (base/undo_store.h).
    bool isHalfDone = false;

    explicit operator bool() const { return kind != FailureKind::None; }

    // The same with the ticker, or with what else is to be said, where that is not known yet.
    Failure Of(std::string_view whose) &&;
    Failure About(std::string_view further) &&;

    bool operator==(const Failure&) const = default;
};

// A failure where `cause` is set, none where it is not.
Failure FailedTo(FailureKind kind, const Path& file, const std::error_code& cause);

// A failure whose sentence is `text`.
Failure FailedBecause(std::string text);

// The first of two that is one; for runs that go on and tell of their first failure.
void KeepFirst(Failure& first, const Failure& next);

// "NAME: cannot be read (REASON)": the place, what was tried, the cause, and what else is to be said behind a
// semicolon. One line without a full stop at its end, as every sentence about a file is; empty for None.
std::string Sentence(const Failure& failure);

// That of a file that could not be written; empty without a cause.
std::string CannotBeSaved(const Path& file, const std::error_code& cause);

// The same of a change or a run that ends with it: "WHAT failed: NAME: cannot be saved (REASON)", and what a
// change that could not be put back leaves. For reports that say themselves what else it leaves.
std::string FailedSentence(std::string_view what, Failure failure);
// That, and whether anything was changed: "...; nothing was changed".
std::string ChangeSentence(std::string_view what, Failure failure);

// The bytes of a file that may be missing: those of a missing one are none. A file that is there and gives no
// bytes is a failure, with `bytes` empty: whoever goes on as though it were missing loses what it holds.
Failure ReadIfThere(const Path& file, std::string& bytes);

// The same behind the first `used` bytes of a buffer, as ReadIntoBuffer (base/files.h).
Failure ReadBehindIfThere(const Path& file, std::string& buffer, std::size_t& used);

// The bytes of a file that has to be there: a missing one is a failure too.
Failure ReadNeeded(const Path& file, std::string& bytes);

// The names of the regular files in a folder, sorted. A folder that is missing has none.
Failure ListFiles(const Path& folder, std::vector<std::string>& names);

// Deletes a file; one that is not there is gone already.
Failure DeleteIfThere(const Path& file);

}  // namespace brantlow
