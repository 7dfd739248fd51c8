// The days of a year file's records, and the file as it stood on a past day: for whoever looks at the history
// with what was known then.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/dates.h"

namespace brantlow {

// The trade date of a record, the first field of its line; nothing where it cannot be read.
std::optional<Date> RecordDay(std::string_view line);
// The same of the field alone, without its quotes.
std::optional<Date> DayOfField(std::string_view field);

// Takes the records after `last` out of the lines that begin at text[from] and end at `to`, which is the
// place of the new end afterwards. A record without a readable date shares the fate of the one above it, and
// stays where there is none above.
void DropRecordsAfter(const Date& last, std::string& text, std::size_t from, std::size_t& to);

}  // namespace brantlow
