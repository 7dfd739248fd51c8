// Storing one day of one ticker in the quote database, as imports and the end-of-day update do for each row.
//
// A year file grows at its end only: a newer date is appended, the last day is replaced when the new record
// is later in the day or higher in price, and anything else is dropped. Dates are compared as text, which is
// calendar order within one year file. A file that is replaced takes its place when the run's change is
// committed, one that grows in place (store/year_growth.h) does so at once.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_change.h"
#include "store/history_record.h"
#include "store/quote_rows.h"
#include "store/year_growth.h"

namespace brantlow {

// What stays from one row to the next. A row whose date names no year reads no file and is compared with,
// and written to, the file of the row before. The caller keeps one for the session.
struct DayStore {
    // Nothing before the first row, and after a ticker that can have no file.
    std::optional<Path> file;
    // The file as it was read stands in the buffer's first `used` bytes. Only its last record is looked at on
    // most days: the others are read when the file is written anew.
    std::string buffer;
    std::size_t used = 0;
    // Record HistoryCount, the newest; empty when there is none.
    HistoryRecord last;
    // The file's last line has no line end.
    bool endsInsideLine = false;
    // The file had a half line at its end; `used` leaves it out.
    bool hadHalfLine = false;
    // The file has more lines than count; `used` leaves them out.
    bool hasMoreLines = false;

    std::string_view Bytes() const { return std::string_view(buffer).substr(0, used); }
    // The records of the file, at most kMostRows; counted anew by each call.
    std::size_t HistoryCount() const;
};

enum class DayOutcome {
    Skipped,    // no ticker, a device name, or no trade date: nothing was touched
    Unchanged,  // neither newer nor a better record of the last day, or a ticker without files
    Replaced,
    Appended,
    Failed,  // the file could not be written
};

struct StoredDay {
    DayOutcome outcome = DayOutcome::Skipped;
    Failure error;  // set when Failed
};

// One run of storing days: the change of files that it is, and what it tells.
struct DayRun {
    FileChange& change;  // the caller commits it
    YearGrowth growth;
    // The lines of the tickers that were looked at, in order; those that failed are not among them.
    std::string listed;
    // Files whose last line had been cut off; it is gone where the file was written.
    std::vector<Path> halfLines;
};

// A row's year file as it was read before the row's turn.
struct ReadYear {
    DayStore year;
    std::optional<GrowingFile> opened;
    FileEnd end;
    // Of the row's day, where it comes behind the last one in place; else empty.
    std::string line;
    // False where the row is to be read in its turn: it names no file, or what was read of it does not do.
    bool isRead = false;
};

// How much of a year file is read ahead: a day that comes behind the last one needs that one alone.
enum class YearPart { Whole, End };

// The part of each row's file, by row number, from 1 to `entries`. A row whose date names no year goes on
// with the file of the row before it, the first one of the next run with the last file of this: those are
// Whole.
std::vector<YearPart> YearPartsOf(const QuoteArrays& rows, std::size_t entries);

// Reads the year file of row `row`, which no change has touched. Where it could be read the row's missing
// prices are filled in; nothing of another row is looked at.
void ReadYearAhead(const std::string& quoteFolder, QuoteArrays& rows, std::size_t row, YearPart part,
                   ReadYear& read);

// Stores row `row` of `rows`, for which room was made; its missing prices are filled in first. The ticker
// enters the run's list unless the row is skipped. A line that a lost connection to the disk cut off at the
// end of the file, one of fewer than 19 fields without a line end, is left out when the file is written.
// `ahead`, unless null, is the row's year file, read since it was last touched; it is used up.
StoredDay StoreDay(const std::string& quoteFolder, QuoteArrays& rows, std::size_t row, DayStore& state,
                   DayRun& run, ReadYear* ahead = nullptr);

// The row as a record of its year file, rounded.
HistoryRecord RecordOfRow(const QuoteArrays& rows, std::size_t row);

}  // namespace brantlow
