// A ticker's whole history written anew: a history download and a split adjustment put their records here in
// the order of time, and the year files that come of them take the place of all files the ticker had.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/file_change.h"
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

// Prepares in `change` that `texts` take the place of all year files of `ticker`; without texts the ticker
// has no files afterwards. `files` are those it has, and afterwards those it will have. A year that can name
// no file is passed over.
Failure PrepareTickerHistory(const std::string& quoteFolder, std::string_view ticker,
                             std::span<const YearFileText> texts, std::vector<Path>& files,
                             FileChange& change);

// Prepares that the tickers have no files, with one look at the folder.
Failure PrepareHistoryDeletion(const std::string& quoteFolder, std::span<const std::string> tickers,
                               FileChange& change);

}  // namespace brantlow
