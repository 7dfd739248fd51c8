#include "store/history_rewrite.h"

#include <algorithm>
#include <iterator>

#include "store/year_files.h"

namespace brantlow {

namespace {

bool Holds(const std::vector<Path>& files, const Path& file) {
    return std::any_of(files.begin(), files.end(),
                       [&](const Path& other) { return other.filename() == file.filename(); });
}

// Writes the files, last text first; `written` takes those whose place is taken, be it by an old file that
// could not be replaced.
std::error_code WriteFiles(const std::string& quoteFolder, std::string_view ticker,
                           std::span<const YearFileText> texts, WhenOneFails whenOneFails,
                           std::vector<Path>& written) {
    std::error_code first;
    for (std::size_t i = texts.size(); i-- > 0;) {
        const std::optional<Path> path = YearFilePath(quoteFolder, ticker, texts[i].year);
        if (!path) continue;
        const std::error_code error = WriteWholeFile(*path, texts[i].bytes, Flush::Later);
        if (error && !first) first = error;
        if (error && whenOneFails == WhenOneFails::Stop) return first;
        if (!error || IsRegularFile(*path)) written.push_back(*path);
    }
    return first;
}

}  // namespace

std::string& YearFileTexts::TextOf(std::string_view year) {
    if (!files_.empty() && files_[current_].year == year) return files_[current_].bytes;
    const auto [place, isNew] = places_.try_emplace(std::string(year), files_.size());
    if (isNew) files_.push_back({place->first, {}});
    current_ = place->second;
    return files_[current_].bytes;
}

void YearFileTexts::Add(const HistoryRecord& record) {
    AppendHistoryLine(record, TextOf(YearDigits(record.HistoryDate)));
}

std::error_code ReplaceTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                                     std::span<const YearFileText> texts, WhenOneFails whenOneFails) {
    std::vector<Path> files = YearFilesOf(quoteFolder, ticker);
    return ReplaceTickerHistory(quoteFolder, ticker, texts, whenOneFails, files);
}

std::error_code ReplaceTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                                     std::span<const YearFileText> texts, WhenOneFails whenOneFails,
                                     std::vector<Path>& files) {
    std::vector<Path> kept;
    const std::error_code error = WriteFiles(quoteFolder, ticker, texts, whenOneFails, kept);
    const bool isComplete = !error || whenOneFails == WhenOneFails::GoOn;
    for (const Path& file : files) {
        if (Holds(kept, file) || (isComplete && DeleteOneFile(file))) continue;
        kept.push_back(file);
    }
    files = std::move(kept);
    return error;
}

}  // namespace brantlow
