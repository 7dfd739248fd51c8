// A ticker's whole history written anew: a history download and a split adjustment put their records here in
// the order of time, and the year files that come of them take the place of all files the ticker had.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "base/files.h"
#include "store/history_record.h"

namespace brantlow {

struct YearFileText {
    std::string year;  // as it stands behind the ticker's point
    std::string bytes;
};

// Collects records into the texts of their year files, each record behind those that came before it.
class YearFileTexts {
  public:
    // The record is written as it is; it is rounded before.
    void Add(const HistoryRecord& record);

    // In the order in which the years came up first.
    const std::vector<YearFileText>& Files() const { return files_; }

  private:
    std::string& TextOf(std::string_view year);

    std::vector<YearFileText> files_;
    std::unordered_map<std::string, std::size_t> places_;
    std::size_t current_ = 0;
};

// What happens to the other files when one cannot be written. Its old file stands in either case.
enum class WhenOneFails {
    GoOn,
    Stop,  // the files that come after it, and the deletions, are left as they are
};

// Replaces all year files of `ticker` by `texts`, each file whole; without texts the ticker has no files
// afterwards. The last text is written first and old files go at the end: a restatement that breaks off
// leaves the old prices below the new ones, where the next run finds the jump and goes on. A year that can
// name no file is passed over. Returns the first error.
std::error_code ReplaceTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                                     std::span<const YearFileText> texts, WhenOneFails whenOneFails);

// The same for a caller who knows which files the ticker has; `files` holds what it has afterwards.
std::error_code ReplaceTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                                     std::span<const YearFileText> texts, WhenOneFails whenOneFails,
                                     std::vector<Path>& files);

}  // namespace brantlow
