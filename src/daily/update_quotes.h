// The batch loop of the end-of-day update: current quotes of every ticker of the open table come in batches
// and fill its cells row by row; the quotes that are young enough for the database are collected in
// Import.Txt. The flow around it is in daily_update.h.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "alerts/fired_alarms.h"
#include "alerts/stock_alert.h"
#include "shell/memory_status.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "store/quote_rows.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kSetUpQuoteDownloads =
    "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.";
inline constexpr std::string_view kTickerCountMismatch = "Number of Ticker Symbols per String does not match";

struct LiveSources;
struct AlarmPost;

// What an update works on.
struct UpdateWork {
    Session& session;
    QuoteTable& table;
    Web& web;
    const Hosts& hosts;
    // Kept from one update of a table to the next: a value that cannot be computed stays. The values of other
    // tickers than the table's are forgotten.
    QuoteArrays& rows;
    AlertedTickers& alerted;
    // The text by which memory is watched after each batch.
    std::string (*memoryInfo)() = ReadMemoryInfo;
    // Shows (true) and takes away (false) what tells that histories are adjusted for splits; may be empty.
    std::function<void(bool)> showAdjustSplits = {};
    // The live sources to ask in place of the standard source; null for that one.
    LiveSources* live = nullptr;
    // Mails the alarms that fire where the settings say so; null where nobody is to be mailed.
    AlarmPost* post = nullptr;
};

struct UpdateOutcome {
    std::size_t batches = 0;        // replies asked for
    std::size_t failedBatches = 0;  // those that did not come
    std::size_t accepted = 0;       // records in Import.Txt
    std::size_t StaleCount = 0;     // quotes more than four days old
    bool stopped = false;           // ended before the last batch
    bool noTemplate = false;        // the user's source has no address: nothing was asked for
    Failure error;                  // of a work file, Temp.txt or Import.Txt
    // Each row that was reached, in the order of the table. A quote that is young enough counts as stored.
    std::vector<TickerTold> tickers;
    std::vector<FiredAlarm> alarms;          // of tickers that were not told of before, one each
    std::vector<std::string> alertsLeftOut;  // tickers whose alert cannot be asked for
};

// Updates the table that the session's CurrentFile names; another kind than end-of-day is left alone. A batch
// whose reply does not come is passed over without a word. In the markets that write decimal points, a reply
// line changes the cells of a row only when it carries the row's ticker; a record is written only for tickers
// of the table. Rows, progress and beeps go to the session's person, the row in work to session.run.
UpdateOutcome UpdateQuotes(const UpdateWork& work);

// What an update begins with, whatever its source: the run, the work files of an earlier one, the rows in
// step with the table.
void BeginUpdate(const UpdateWork& work);

}  // namespace brantlow
