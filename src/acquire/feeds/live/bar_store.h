// Days of live sources on their way into the quote database: as records, as a whole history in the place of
// the stored one, as days behind the stored ones, and the restatement after a split.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "acquire/feeds/live/source_rows.h"
#include "base/file_change.h"
#include "store/history_record.h"
#include "store/year_growth.h"

namespace brantlow {

// A day as a history record, rounded. Its close may have become 0.
HistoryRecord RecordOfBar(const SourceBar& bar);

// Divides the prices of the days before each split by its factor and multiplies their volumes.
void AdjustBars(std::vector<SourceBar>& bars, const std::vector<SourceSplit>& splits);

// Puts the days in the place of all files that the ticker has; returns the days that have a price in the
// database's form.
struct HistoryWrite {
    std::size_t days = 0;
    Failure fault;
};
HistoryWrite WriteHistory(const std::string& quoteFolder, std::string_view ticker,
                          const std::vector<SourceBar>& bars, const std::vector<Path>& oldFiles,
                          FileChange& change);

// The newest stored days of a ticker.
struct StoredEnd {
    std::optional<std::chrono::sys_days> day;
    double close = 0;
    std::optional<std::chrono::sys_days> dayBefore;
    double closeBefore = 0;
};
// Of the ticker's newest year file that is not of a later year than `today`; a file that cannot be read gives
// the fault.
StoredEnd ReadStoredEnd(const std::vector<Path>& files, std::chrono::sys_days today, Failure& fault);

// Adds records, oldest first, behind those of their year files. Those whose last line had been cut off are
// added to `halfLines`: it is gone.
Failure AddRecords(const std::string& quoteFolder, std::string_view ticker,
                   const std::vector<HistoryRecord>& records, YearGrowth growth, FileChange& change,
                   std::vector<Path>& halfLines);

// Restates every record of a day before the split; none is lost but a line that was cut off. A record whose
// date cannot be read shares the fate of the one above it. Returns how many were restated.
struct Restatement {
    std::size_t days = 0;
    Failure fault;
    std::vector<Path> halfLines;  // restated files that had such a line
};
Restatement RestateHistory(const std::vector<Path>& files, std::chrono::sys_days splitDay, double factor,
                           FileChange& change);

}  // namespace brantlow
