// The reply of a source of history: lines ended by LF, one a trading day, newest first, of seven values:
// date, open, high, low, last, volume and one that is not used.
#pragma once

#include <string_view>
#include <vector>

#include "shell/settings/settings_tables.h"
#include "store/history_record.h"

namespace brantlow {

// How the lines of a reply are to be read; entries of NetSettings, which hold for both sources.
struct HistoryReplyForm {
    // Lines in front of the first day, beyond the one header line that every reply has, and behind the last.
    double headerLines = 0;
    double footerLines = 0;
    // "01/02/04", "Jan-2-2004", "20040102" or "040102".
    std::string_view dateForm;
    // Whether a comma between double quotes belongs to its value, as in the standard source's replies.
    bool quotesProtect = true;
};

// True for a reply that brings no day and yet is one: a head line of several values, and below it nothing but
// lines of as many as a day has.
bool IsHistoryWithoutDays(std::string_view reply);

// The days of a reply as records for the database, oldest first. Of a longer reply the newest kMostRows days
// are taken. What stands behind the last line end is no line. A day whose last price is no number, or rounds
// to 0 or less, and one whose date does not end in the two digits of a year, is left out; any other value
// that cannot be read is 0.
std::vector<HistoryRecord> RecordsOfReply(std::string_view reply, const HistoryReplyForm& form);

}  // namespace brantlow
