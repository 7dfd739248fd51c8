// The export: the open table as a text file for another program, by the export settings.
#pragma once

#include <string>
#include <string_view>

#include "base/failure.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kExportNeedsTable =
    "Export is only supported for End of Day, Stock Selector, and Extended Fundamental files";

enum class ExportOutcome {
    Done,
    NeedsTable,
    Declined,  // the file is the program's own, and the person does not give it up
    Failed,
};

struct QuoteExport {
    ExportOutcome outcome = ExportOutcome::Done;
    Failure error;         // set when Failed: the old file stands
    std::size_t rows = 0;  // lines written
};

// The file that the settings name.
Path ExportFile(const Path& appPath, const SettingsTables& settings);

// The text of the export: of a quote table the rows without the header and the columns that the settings
// choose, in the table's order; of the other two kinds everything. A separator stands before a cell when
// something stands before it in its line.
std::string ExportText(const SettingsTables& settings, FileKind kind, const QuoteTable& table,
                       Person& progress);

// What an export of `rows` rows of the open file `name` to `target` tells.
RunReport ExportReport(const std::string& name, std::size_t rows, const Path& target);

// Writes the table that the session's CurrentFile names. A table of no kind, or a template, is refused with
// its sentence; a file of the program's own (store/own_files.h) is replaced only where the person wants it.
QuoteExport ExportQuotes(Session& session, const QuoteTable& table);

}  // namespace brantlow
