#include "store/history_rewrite.h"

#include <algorithm>

#include "store/year_files.h"

namespace brantlow {

namespace {

bool Holds(const std::vector<Path>& files, const Path& file) {
    return std::any_of(files.begin(), files.end(),
                       [&](const Path& other) { return other.filename() == file.filename(); });
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

Failure PrepareTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                             std::span<const YearFileText> texts, std::vector<Path>& files,
                             FileChange& change) {
    std::vector<Path> written;
    for (const YearFileText& text : texts) {
        const std::optional<Path> path = YearFilePath(quoteFolder, ticker, text.year);
        if (!path) continue;
        if (Failure fault = change.Write(*path, text.bytes)) return fault;
        written.push_back(*path);
    }
    for (const Path& file : files) {
        if (Holds(written, file)) continue;
        if (Failure fault = change.Delete(file)) return fault;
    }
    files = std::move(written);
    return {};
}

Failure PrepareHistoryDeletion(const std::string& quoteFolder, std::span<const std::string> tickers,
                               FileChange& change) {
    Failure unread;
    const auto filesByTicker = YearFilesByTicker(quoteFolder, tickers, &unread);
    if (unread) return unread;
    for (const auto& [ticker, files] : filesByTicker) {
        for (const Path& file : files) {
            if (Failure fault = change.Delete(file)) return fault;
        }
    }
    return {};
}

}  // namespace brantlow
