// The addresses under which a ticker's history is asked for: the standard source's, and the user's own with
// its placeholders.
#pragma once

#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "base/dates.h"

namespace brantlow {

struct HistorySpan {
    std::string StartDate;  // "mm/dd/yyyy"
    std::string EndDate;    // "mm/dd/yyyy", today
};

// Years of 365 days back from today, leap days or not. Less than 0 counts as 0, more than 1,000 as 1,000.
HistorySpan HistorySpanOf(const Date& today, double HistoryYears);

// The standard source's address. Nothing is encoded.
std::string StandardHistoryUrl(const Hosts& hosts, std::string_view ticker, const HistorySpan& span);

// `userUrl` with ticker and dates in place of its placeholders. Each placeholder is replaced where it stands
// last; earlier ones stay.
std::string UserHistoryUrl(std::string_view userUrl, std::string_view ticker, const HistorySpan& span);

}  // namespace brantlow
