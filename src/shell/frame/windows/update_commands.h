// What fills the open table from outside: the end-of-day update, by hand and at its minute, the collection of
// extended fundamentals, and a file of another program.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>
#include <string>

#include "acquire/schedule/update_schedule.h"
#include "acquire/web/url_cache.h"
#include "alerts/alarm_mail.h"
#include "alerts/stock_alert.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/frame/windows/scheduled_handover.h"
#include "shell/memory_status.h"
#include "shell/run_report.h"
#include "store/day_store.h"
#include "store/quote_rows.h"

namespace brantlow {

class frmAdjustSplits;
struct DailyUpdate;

class UpdateCommands final {
  public:
    // All outlive this; `cache` is what pages leave behind.
    UpdateCommands(const FrameHands& frame, Analysis& analysis, UrlCache& cache)
        : frame_(frame), analysis_(analysis), cache_(cache) {}

    CommandRows Rows();

    // The update of the open table by hand; false when there is none, or the frame goes now.
    bool Update();

    // Looks at the clock, and listens for copies that the system starts for the daily run, from now on.
    void StartClock();
    // One look at the clock: starts the daily run in its minute. Called by a timer about once a second.
    void WaitForDailyRun();
    // What runs keep of each row: rows of another table would show in their place.
    void ForgetRows() { rows_ = {}; }
    // Long runs watch the memory by this text instead of the system's.
    void WatchMemoryBy(std::string (*memoryInfo)()) { memoryInfo_ = memoryInfo; }

  private:
    void CmdUpdateQuotes();
    // The update of the open table with what follows it; false when the frame goes now.
    bool UpdateOpenTable(frmQuoteGrid& form, bool isDaily, RunReport& report);
    // The daily run: over the open table when it is the newest of the recent list, else over that one's file.
    void RunDaily();
    RunReport RunNewest();
    RunReport UpdateFile();
    std::optional<int> StatusOfToday();
    void ExtendedFundamentals();
    void ExtendedFundamentalData();
    void ImportQuoteFile();
    DailyUpdate RunUpdate(frmQuoteGrid& form);
    std::function<void(bool)> ShowsAdjustSplits(frmAdjustSplits& window);
    void CollectFundamentals(frmQuoteGrid& form);

    const FrameHands& frame_;
    Analysis& analysis_;
    UrlCache& cache_;
    // Kept from one run to the next, until exit.
    QuoteArrays rows_;
    AlertedTickers alerted_;
    MailTold mail_;  // of the newest update of the open table
    DailyRun dailyRun_;
    DayStore days_;
    // Gone with the window.
    QPointer<HandoverServer> copies_;
    int lastStatus_ = 0;
    std::string (*memoryInfo_)() = ReadMemoryInfo;
};

}  // namespace brantlow
