// Joining two quote files to a third one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/file_change.h"
#include "shell/session.h"

namespace brantlow {

// The file dialogs of the command, in order.
inline constexpr std::string_view kFirstFileTitle = "Select First File";
inline constexpr std::string_view kSecondFileTitle = "Select File to Combine";
inline constexpr std::string_view kCombinedFileTitle = "Save As";

// The part of a chosen path behind its last separator, among its last 100 characters.
std::string BareFileName(std::string_view path);

struct CombinedFile {
    std::size_t rows = 0;
    Failure unread;  // one of the files is missing or could not be read; nothing was written then
    Failure error;   // `output` could not be written; an old file stands
};

// Writes the rows of `first` and then those of `second` as `output`, all three names in the session's data
// folder; a file that is replaced can be undone. Lines
// keep their column order and tickers of both files stay twice. The first row of the second file takes the
// place of the last row of the first. An output whose name ends in "ddq" gets the header of all columns, any
// other none. Rows past the 18,000th are left out.
CombinedFile CombineQuoteFiles(const Session& session, const std::string& first, const std::string& second,
                               const std::string& output);

}  // namespace brantlow
