// The stock split calendar page as the web has it; splits/split_calendar.h works on what comes.
#pragma once

#include <string>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"

namespace brantlow {

std::string SplitCalendarUrl(const Hosts& hosts);

struct SplitCalendarPage {
    std::string markup;   // empty when the page cannot be fetched
    std::string failure;  // why it is empty or not whole, as a sentence (FailureSentence)
};

// Fetches the page and waits for 10 seconds at most: then the markup is what had come by that time.
SplitCalendarPage FetchSplitCalendarPage(Web& web, const Hosts& hosts);

}  // namespace brantlow
