#include "store/combine_tables.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "base/values.h"
#include "shell/session_change.h"
#include "shell/settings/settings_tables.h"
#include "store/columns.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostNameCharacters = 100;

// Puts the rows of a table text, its header left out, at `at` and behind it.
void TakeRows(std::string_view bytes, std::size_t at, std::vector<std::string>& CombinedLines) {
    LineReader reader(bytes);
    std::string_view line;
    reader.Next(line);
    for (; at < kMostRows && reader.Next(line); ++at) {
        if (at == CombinedLines.size()) CombinedLines.emplace_back();
        CombinedLines[at] = line;
    }
}

std::string TextOf(const std::vector<std::string>& CombinedLines, bool hasHeader) {
    std::string text = hasHeader ? QuoteHeader().append(kLineEnd) : std::string();
    for (const std::string& line : CombinedLines) text.append(line).append(kLineEnd);
    return text;
}

Failure WhyUnread(const ReadResult& read, const std::string& name) {
    if (read.outcome == ReadOutcome::Missing) return FailedBecause(name + ": no such file in Data");
    return FailedTo(FailureKind::Read, name, read.error);
}

}  // namespace

std::string BareFileName(std::string_view path) {
    path = path.substr(path.size() - std::min(path.size(), kMostNameCharacters));
    const std::size_t separator = path.find_last_of("/\\");
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

CombinedFile CombineQuoteFiles(const Session& session, const std::string& first, const std::string& second,
                               const std::string& output) {
    const Path dataFolder = session.DataFolder();
    CombinedFile result;
    std::vector<std::string> CombinedLines;
    for (const std::string& name : {first, second}) {
        const ReadResult read = ReadWholeFile(dataFolder / name);
        result.unread = WhyUnread(read, name);
        if (result.unread) return result;
        TakeRows(read.bytes, std::max<std::size_t>(CombinedLines.size(), 1) - 1, CombinedLines);
    }
    result.rows = CombinedLines.size();
    const bool replaces = IsRegularFile(dataFolder / output);
    FileChange change(ChangePlaceOf(session), "Combine " + first + " and " + second,
                      replaces ? ChangeKeeps::ForUndo : ChangeKeeps::UntilDone);
    result.error = change.Write(dataFolder / output, TextOf(CombinedLines, output.ends_with("ddq")));
    if (!result.error) result.error = change.Commit();
    return result;
}

}  // namespace brantlow
