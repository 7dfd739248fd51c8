// What fills the open table from outside: the end-of-day update, by hand or as the daily run, and a file of
// another program.
#pragma once

#include <QPointer>
#include <cstddef>
#include <functional>
#include <string>

#include "alerts/alarm_mail.h"
#include "alerts/stock_alert.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/run_report.h"
#include "store/day_store.h"
#include "store/quote_rows.h"
#include "store/quote_table.h"

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
    // Does `show`, which shows what files say after the change of this number was undone. Where that was the
    // import into the open table, or its undoing, the table gets the rows back that it had then, saved or
    // not.
    void ShowUndone(std::size_t change, const std::function<void()>& show);

  private:
    // The rows on the other side of the newest import, as long as its table is open.
    struct OtherRows {
        std::size_t change = 0;  // whose undoing brings them
        QPointer<frmQuoteGrid> form;
        QuoteTable table;
    };

    void CmdUpdateQuotes();
    void ImportQuoteFile();
    std::size_t NewestChange() const;
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
    OtherRows beforeImport_;
};

}  // namespace brantlow
