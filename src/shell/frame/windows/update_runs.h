// What the main frame keeps for updates of the open table from one run to the next, until exit.
#pragma once

#include <string>

#include "acquire/schedule/update_schedule.h"
#include "acquire/version/online_status.h"
#include "acquire/web/url_cache.h"
#include "alerts/stock_alert.h"
#include "shell/memory_status.h"
#include "store/quote_rows.h"

namespace brantlow {

struct UpdateRuns {
    QuoteArrays rows;
    AlertedTickers alerted;
    DailyRun dailyRun;
    OnlineState online;
    MemoryUrlCache cache;
    // By which long runs watch the memory.
    std::string (*memoryInfo)() = ReadMemoryInfo;
    // A collection of fundamentals fills the open table; closing it ends the run.
    bool collecting = false;
    bool closeAfterRun = false;
};

}  // namespace brantlow
