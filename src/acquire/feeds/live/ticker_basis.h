// What the stored history of a ticker is: from which live source it came, on which basis its prices stand, in
// which currency, and up to which day splits are in them. Kept in Data/Source Histories.json. A ticker
// without an entry came from elsewhere: of it nothing is known.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_rows.h"
#include "base/file_change.h"

namespace brantlow {

inline constexpr const char* kSourceHistoriesName = "Source Histories.json";

struct TickerBasis {
    std::string source;
    PriceBasis basis = PriceBasis::Raw;
    std::string currency;
    // Splits up to this day are in the prices of the days before them.
    std::chrono::sys_days through;
    // Days of later splits for which the history was restated.
    std::vector<std::chrono::sys_days> restated;
};

class TickerBases {
  public:
    // The entries of the folder; none where the file is missing. A file that cannot be read gives the fault.
    static TickerBases Load(const Path& dataFolder, Failure& fault);

    // Null for a ticker without an entry.
    const TickerBasis* Find(std::string_view ticker) const;
    void Set(const std::string& ticker, TickerBasis basis) { entries_[ticker] = std::move(basis); }
    void Forget(const std::string& ticker) { entries_.erase(ticker); }

    // Puts the entries into the change.
    Failure Save(const Path& dataFolder, FileChange& change) const;

  private:
    std::map<std::string, TickerBasis, std::less<>> entries_;
};

// Why the days of a source cannot follow the stored ones: another currency, or prices from which dividends
// were taken beside others. Empty where they can.
std::string MixRefusal(const TickerBasis* stored, const SourceDefinition& source, PriceBasis basis,
                       std::string_view currency);

}  // namespace brantlow
