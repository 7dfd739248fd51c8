// The stock split calendar page as the web has it; splits/split_calendar.h works on what comes.
#pragma once

#include <string>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"

namespace brantlow {

std::string SplitCalendarUrl(const Hosts& hosts);

// The page's markup, waited for 10 seconds at most: then what had come by that time. Empty when the page
// cannot be fetched.
std::string FetchSplitCalendarPage(Web& web, const Hosts& hosts);

}  // namespace brantlow
