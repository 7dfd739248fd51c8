// Looks through a table-shaped file: header, lines, cells. Used by check_run.h for every table of the data
// folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "check/finding.h"
#include "shell/file_kind.h"

namespace brantlow {

struct TableCheck {
    std::vector<Finding> findings;
    std::vector<std::string> tickers;  // of the first column, in their order
};

TableCheck CheckTable(const Path& file, FileKind kind, std::string_view bytes, const Date& today);

// True for the kinds of findings that MendTable may repair.
bool IsTableMendable(FindingKind kind);
// The table with what can be repaired without a guess: empty lines go, missing cells at a line's end are put
// there as empty ones, and empty cells behind the header's last column go. No cell that says something
// changes.
std::string MendTable(std::string_view bytes);

}  // namespace brantlow
