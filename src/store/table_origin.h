// What a table of verdicts was made of: the day up to which history counted, the interval, and the quote file
// whose tickers were judged. The table's own file has no room for it, so it stands in a small file beside it:
// "Evaluations.dbe" and "Evaluations.dbe.about".
//
// The small file names the bytes that it belongs to. Beside a table of other bytes, one that was copied over
// by hand or written by another program, it says nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "base/files.h"

namespace brantlow {

struct TableOrigin {
    Date day{};
    std::string interval;  // "Daily", "Weekly" or "Monthly"
    std::string source;    // relative to the Data folder

    bool operator==(const TableOrigin&) const = default;
};

// The place of the small file beside `table`.
Path OriginFile(const Path& table);

// The text of the small file for a table whose file holds `tableBytes`; lines end with CR LF.
std::string OriginText(const TableOrigin& origin, std::string_view tableBytes);

// What the text says; nothing where it belongs to other bytes or cannot be understood.
std::optional<TableOrigin> ParseOrigin(std::string_view text, std::string_view tableBytes);

// What stands beside `table`; nothing where no such file stands there, or none of these bytes.
std::optional<TableOrigin> ReadOrigin(const Path& table, std::string_view tableBytes);

// "Practice.ddq, weekly, 2026-11-20", for a title.
std::string OriginWords(const TableOrigin& origin);

}  // namespace brantlow
