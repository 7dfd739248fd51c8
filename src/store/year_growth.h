// How days come behind those that a year file holds: for the end-of-day update, imports and missed days.
//
// A file that is replaced is found as it was or as it will be, whenever the program is killed. One that grows
// in place costs the line alone; a kill inside that one write leaves a part of it until the next writing
// command takes it back by the file's length (FileChange::WillGrow).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/file_change.h"
#include "shell/run_report.h"

namespace brantlow {

enum class YearGrowth { Replaced, InPlace };

// Copying a year for each of its days pays for the files of a person's tables, not for those of a market.
inline constexpr std::size_t kMostReplacedYears = 500;
YearGrowth GrowthOfRun(std::size_t tickers);

// The text of a year file without a line that was cut off at its end: one of fewer than 19 fields without a
// line end.
std::string_view WithoutHalfLine(std::string_view bytes);

// What is told of files that have lost such a line: "the half line at the end of NFLX.26 was taken out";
// empty without files.
std::string HalfLineWords(std::span<const Path> files);
// The same in the line of a run.
void TellHalfLines(std::span<const Path> files, RunReport& report);

struct AddedLines {
    Failure fault;
    bool hadHalfLine = false;  // it is gone
};
// Puts whole lines behind those of a year file, which may be missing.
AddedLines AddLines(const Path& file, std::string_view lines, YearGrowth growth, FileChange& change);

}  // namespace brantlow
