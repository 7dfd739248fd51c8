// The general import: a user's text file of quotes fills the open quote table and the quote database.
//
// The import settings say where the file lies, what separates its fields, which lines frame it, and which
// column each field belongs to. Line i of the file becomes row i of the table; rows of the table whose
// tickers the file does not mention follow behind its lines as they are, and nothing of theirs is stored. An
// import consumes its file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "shell/run_report.h"
#include "shell/session.h"
#include "store/day_store.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kImportNeedsQuoteFile =
    "First, open an existing EOD Quote File or a New EOD Quote File you wish to Import data. An Existing "
    "Quote file will import the data for the ticker sysmbols contained in the quote file. A New Quote file "
    "will accept all data in the file you wish to import.";
inline constexpr std::string_view kImportLimitQuestion =
    "You have exceeded 18000 Ticker Symbols. Some data will be lost. Do you wish to continue?";
inline constexpr std::string_view kImportStopped =
    "Stopped; table, database and import file are as they were";
inline constexpr std::string_view kImportLimitTitle = "Quote File Exceedence!";

// From this many lines on, those of the table's own tickers included, the person is asked.
inline constexpr std::size_t kImportLimit = kMostRows;

enum class ImportOutcome {
    Done,
    NothingToRead,  // no file, or no line in it: the table is as it was
    NeedsQuoteFile,
    Declined,  // the person does not want to lose the lines beyond the limit, or the program's own file that
               // would be imported: nothing was changed
    Stopped,   // by the person: files and table are as they were
    Failed,    // a file could not be written: all files, that of the import included, are as they were
};

struct QuoteImport {
    ImportOutcome outcome = ImportOutcome::Done;
    std::size_t rows = 0;         // lines of the file that became rows
    std::size_t stored = 0;       // days appended to the database or replaced in it
    Failure error;                // set when Failed: the first failure
    std::vector<Path> halfLines;  // year files whose last line had been cut off; it is gone
    // What became of each row, and of the tickers whose row went.
    RunReport report;
};

// The file that the settings name.
Path ImportFile(const Path& appPath, const SettingsTables& settings);

// The lines of an import file, at most kMostRows, without those that begin with a device name.
std::vector<std::string> ImportLinesOf(std::string_view bytes);

// Imports into `table`, which the session's CurrentFile names. Columns that a file cannot supply (the alarms)
// stay with their tickers. `saveTo`, unless null, takes the table. The days, the update list, the table and
// the end of the import file are one change of files that can be undone. Messages, status words, the ticker
// count and progress go to the session's person.
QuoteImport ImportQuotes(Session& session, QuoteTable& table, DayStore& days, const Path* saveTo);

}  // namespace brantlow
