// The year files of an import's next days, read by a second thread while the days before them are stored.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/ahead_of_turn.h"
#include "store/day_store.h"

namespace brantlow {

// For runs whose files grow in place. What was read counts only until the run touches the file.
class DaysAhead {
  public:
    // Of the rows 1 to `entries`, whose missing prices are filled in. `rows` and `run` outlive this; the
    // caller leaves a row alone before its turn.
    DaysAhead(const std::string& quoteFolder, QuoteArrays& rows, std::size_t entries, DayRun& run);

    // For StoreDay: the row's year file, or null where it is to be read in the row's turn. Called once for
    // each row, in their order.
    ReadYear* Of(std::size_t row);

  private:
    // Rows whose files are noted together.
    static constexpr std::size_t kRowsPerBlock = 16;
    using Block = std::array<ReadYear, kRowsPerBlock>;

    void BeginBlock(std::size_t first);
    bool MayHaveGrown(const FileExtent& extent);

    QuoteArrays& rows_;
    std::size_t entries_;
    DayRun& run_;
    std::vector<YearPart> parts_;
    AheadOfTurn<Block> blocks_;
    Block* block_ = nullptr;
    // The files of the rows so far, by their numbers.
    std::unordered_set<std::uint64_t> taken_;
    // A row so far was read in its turn, and may have made any file longer.
    bool anyInTurn_ = false;
};

}  // namespace brantlow
