// The whole end-of-day update of the open table: quotes, database, split calendar, saving. The button "Update
// Quotes", the daily run and the batch tool start it; a window disables its controls meanwhile.
#pragma once

#include <optional>
#include <string_view>
#include <system_error>

#include "acquire/feeds/live/live_splits.h"
#include "daily/live_update.h"
#include "daily/update_quotes.h"
#include "indicators/working_series.h"
#include "splits/split_calendar.h"
#include "store/day_import.h"

namespace brantlow {

// What a window says where no end-of-day table is open.
inline constexpr std::string_view kUpdateNeedsQuoteFile =
    "To update quotes, you will need to open an End of Day Quote File";

struct DailyUpdate {
    UpdateOutcome quotes;
    // What became of each ticker, and all that failed.
    RunReport report;
    // Empty where the settings leave the step out.
    std::optional<DayImport> database;
    std::optional<SplitCheck> splits;
    // Of an update from live sources: what became of each ticker, and the splits that were restated.
    std::optional<LiveReport> live;
    std::vector<AppliedSplit> liveSplits;
    std::string splitFailure;  // why a live source told no splits; empty where it did
    // What a source of fundamentals filled, where one is chosen.
    std::optional<LiveReport> fundamentals;
    std::vector<std::string> alarmFailures;  // of the list of fired alarms and of their mail
    // Why nothing was asked at all; empty for a run that began.
    std::string refusal;
    bool stopped = false;       // ended before its last step
    bool isSaved = false;       // quotes came, and the settings save the quote file after each change
    std::error_code saveError;  // why it could not be saved
    // The settings start the stock selector now: on daily bars, over this table.
    bool selectorFollows = false;
};

// Runs the steps that the settings switch on. A table of another kind than end-of-day is left alone. After a
// run that was stopped, what came is stored and saved, and nothing further begins. A host that stays silent
// is given up (giving_up_web.h). After a run without a single quote the work file and the list of the last
// update are what they were before, so that the update before it can still be taken back. `days` and `series`
// are the session's own. Status words go to the session's person.
DailyUpdate RunDailyUpdate(const UpdateWork& work, DayStore& days, WorkingSeries& series);

// The same with the sources that the settings choose (live_setup.h): where a choice does not hold, nothing is
// asked or changed, and the report tells the refusal.
DailyUpdate RunChosenUpdate(const UpdateWork& work, const std::string& refusal, DayStore& days,
                            WorkingSeries& series);

}  // namespace brantlow
