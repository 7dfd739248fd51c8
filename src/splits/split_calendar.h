// The split calendar check after an end-of-day update: splits that the calendar page lists enter a small log,
// and the history of every logged ticker is restated once the day of its split is past.
//
// The log is SplitLog.txt in the application folder: a line for each split with ticker, day "MM/DD" and
// factor as written values. An entry drops out four days after its split.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/failure.h"
#include "base/file_change.h"
#include "base/files.h"
#include "indicators/working_series.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "splits/split_page.h"

namespace brantlow {

// The work file of the page, which is not kept any more; one that is left from before is deleted.
inline constexpr std::string_view kSplitWorkName = "Split.txt";
inline constexpr std::string_view kSplitLogName = "SplitLog.txt";
inline constexpr std::size_t kMostLoggedSplits = 100;
inline constexpr int kDaysInSplitLog = 4;

// The name of the change that can be undone.
inline constexpr std::string_view kSplitCalendarChange = "Split Calendar";

// What the window frmAdjustSplits shows while the check runs.
inline constexpr std::string_view kAdjustSplitsText = "Adjusting for Stock Splits";

struct LoggedSplit {
    std::string ticker;
    std::string date;  // "MM/DD"; text that is no date is kept
    double factor = 0;

    bool operator==(const LoggedSplit&) const = default;
};

// `date` as "MM/DD". One without a year belongs to this year; text that is no date passes unchanged.
std::string MonthAndDay(std::string_view date, const Date& today);

// The first kMostLoggedSplits entries of the log; none where there is no log, or none that can be read: then
// `failure`, unless null, says why. Lines without a ticker are left out.
std::vector<LoggedSplit> ReadSplitLog(const Path& appPath, Failure* failure = nullptr);
// Prepares that the log is replaced; an empty one goes, and one that says the same already stays.
Failure PrepareSplitLog(const Path& appPath, const std::vector<LoggedSplit>& log, FileChange& change);

// Adds the splits of tickers that the log does not hold, whatever the date, until it is full.
void LogNewSplits(const std::vector<PageSplit>& splits, const Date& today, std::vector<LoggedSplit>& log);
// Takes out what is older than four days. Days are compared as text, so that at the turn of a year December
// counts as later than January.
void DropOldSplits(const Date& today, std::vector<LoggedSplit>& log);
// Whether the day of a split is past, compared as text within this year. Entries of today or later wait, so
// that the split has reached the prices.
bool IsDue(const LoggedSplit& split, const Date& today);

struct SplitCheck {
    // The splits of the log that were due, and how many of them showed in the prices and were restated.
    std::size_t due = 0;
    std::size_t adjusted = 0;
    std::size_t logged = 0;       // entries of the log afterwards
    Failure error;                // the log could not be read, or a file not written: nothing was changed
    bool isChanged = false;       // the log or a history is another than before
    std::vector<Path> halfLines;  // year files whose last line had been cut off; it is gone
    RunReport report;             // of each split that was due
};

// The whole check over `page`, the markup of the calendar page, empty where it could not be fetched; the log
// alone counts then. `meminfo` is the text by which memory is watched (shell/memory_status.h): when it runs
// low the run's stop word is written, and the check goes on. Shows no message of its own. CurrentTicker is
// afterwards what it was before. The log and all restated histories are one change of files, which can be
// undone where a history was restated.
SplitCheck CheckSplitCalendar(Session& session, std::string_view page, std::string_view meminfo,
                              WorkingSeries& series);

}  // namespace brantlow
