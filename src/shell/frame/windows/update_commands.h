// What fills the open table from outside: the end-of-day update, by hand or as the daily run, and a file of
// another program.
#pragma once

#include <functional>
#include <string>

#include "alerts/alarm_mail.h"
#include "alerts/stock_alert.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/run_report.h"
#include "store/day_store.h"
#include "store/quote_rows.h"

namespace brantlow {

class frmAdjustSplits;
struct DailyUpdate;

class UpdateCommands final {
  public:
    // Both outlive this.
    UpdateCommands(const FrameHands& frame, Analysis& analysis) : frame_(frame), analysis_(analysis) {}

    CommandRows Rows();

    // The update of the open table by hand; false when there is none, or the frame goes now.
    bool Update();
    // The daily run: over the open table when it is the newest of the recent list, else over that one's file.
    // It is told; nobody is asked anything.
    RunReport UpdateNewest();
    // What runs keep of each row: rows of another table would show in their place.
    void ForgetRows() { rows_ = {}; }

  private:
    void CmdUpdateQuotes();
    void ImportQuoteFile();
    // The update of the open table with what follows it; false when the frame goes now.
    bool UpdateOpenTable(frmQuoteGrid& form, bool isDaily, RunReport& report);
    RunReport UpdateFile();
    DailyUpdate RunUpdate(frmQuoteGrid& form);
    std::function<void(bool)> ShowsAdjustSplits(frmAdjustSplits& window);
    void KeepVerdicts(RunReport& report);

    const FrameHands& frame_;
    Analysis& analysis_;
    // Kept from one run to the next, until exit.
    QuoteArrays rows_;
    AlertedTickers alerted_;
    MailTold mail_;  // of the newest update of the open table
    DayStore days_;
};

}  // namespace brantlow
