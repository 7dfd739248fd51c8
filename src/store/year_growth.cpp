#include "store/year_growth.h"

#include <algorithm>
#include <string>

#include "base/values.h"
#include "store/history_record.h"

namespace brantlow {

YearGrowth GrowthOfRun(std::size_t tickers) {
    return tickers <= kMostReplacedYears ? YearGrowth::Replaced : YearGrowth::InPlace;
}

std::string_view WithoutHalfLine(std::string_view bytes) {
    const std::size_t begin = bytes.rfind('\n') + 1;
    const std::string_view last = bytes.substr(begin);
    const auto fields = static_cast<std::size_t>(std::count(last.begin(), last.end(), ',')) + 1;
    return fields < kHistoryFieldCount ? bytes.substr(0, begin) : bytes;
}

std::string HalfLineWords(std::span<const Path> files) {
    if (files.empty()) return {};
    const std::string first = files.front().filename().string();
    if (files.size() == 1) return "the half line at the end of " + first + " was taken out";
    return "the half lines at the ends of " + first + " and " + std::to_string(files.size() - 1) +
           (files.size() == 2 ? " further file" : " further files") + " were taken out";
}

void TellHalfLines(std::span<const Path> files, RunReport& report) {
    if (!files.empty()) report.Add(HalfLineWords(files));
}

AddedLines AddLines(const Path& file, std::string_view lines, YearGrowth growth, FileChange& change) {
    const ReadResult read = ReadWholeFile(change.Where(file));
    if (read.outcome == ReadOutcome::Failed) return {FailedTo(FailureKind::Read, file, read.error), false};
    const std::string_view whole = WithoutHalfLine(read.bytes);
    const bool hadHalfLine = whole.size() < read.bytes.size();
    const bool endsInsideLine = !whole.empty() && whole.back() != '\n';
    const std::string added = std::string(endsInsideLine ? kLineEnd : "").append(lines);
    if (growth == YearGrowth::Replaced || hadHalfLine) {
        return {change.Write(file, std::string(whole).append(added)), hadHalfLine};
    }
    if (const Failure fault = change.WillGrow(file)) return {fault, false};
    return {FailedTo(FailureKind::Write, file, AppendToFile(change.Where(file), added)), false};
}

}  // namespace brantlow
