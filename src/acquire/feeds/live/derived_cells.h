// Cells of quote tables that were worked out of filings, so that the next update works them out anew: a price
// earnings ratio stands for one price, and a year of earnings ends with the next report. What a person or
// another source has put into a cell is nobody's to replace. Kept in Data/Source Cells.json.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/files.h"

namespace brantlow {

inline constexpr const char* kSourceCellsName = "Source Cells.json";

class DerivedCells {
  public:
    // None where the file is missing, holds something else or cannot be read; that last one is not
    // overwritten.
    static DerivedCells Load(const Path& dataFolder);

    // Whether this cell was worked out and still says so.
    bool IsOwn(std::string_view ticker, std::string_view header, std::string_view text) const;
    // Whether it was worked out once.
    bool WasOwn(std::string_view ticker, std::string_view header) const;
    void Set(const std::string& ticker, const std::string& header, std::string text);

    // What cannot be kept stays as it is in the tables from then on.
    void Save(const Path& dataFolder) const;

  private:
    const std::string* Find(std::string_view ticker, std::string_view header) const;

    std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>> cells_;
    bool isUnread_ = false;
};

}  // namespace brantlow
