// The collection of extended fundamentals: three pages for every ticker of the open table, one row of cells
// each. The menu and the batch tool start it once the table's file is made (store/table_files.h) and open.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/web/hosts.h"
#include "acquire/web/url_cache.h"
#include "acquire/web/web.h"
#include "base/file_change.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

// What the menu says over the template of a new table, and what the button says over any file that is no
// quote table.
inline constexpr std::string_view kFundamentalsOverTemplate =
    "To access Extended Fundamental data, you will need to open an End of Day Quote File";
inline constexpr std::string_view kFundamentalsNeedQuoteFile =
    "To run Extended Fundamentals, you will need to open an End of Day Quote File";

// The first character of an index, which has no such pages.
inline constexpr char kIndexMark = '^';

// Where the pages come from, and what the run looks after meanwhile.
struct FundamentalSources {
    Web& web;
    UrlCache& cache;  // purged before the first page and after each
    const Hosts& hosts;
    // The text by which memory is watched after each page (shell/memory_status.h).
    std::function<std::string()> meminfo;
};

struct FundamentalsOutcome {
    std::size_t tickers = 0;                 // rows worked on, indexes and empty rows included
    std::vector<std::string> withoutValues;  // tickers whose pages gave nothing, in the table's order
    bool stopped = false;
    Failure saveError;
    RunReport report;
};

// How a collection ends: whether the file that it writes can be undone, and whether it is written where no
// page told anything.
struct FundamentalsEnd {
    ChangeKeeps keeps = ChangeKeeps::UntilDone;
    bool savesWithoutValues = true;
};

// Fills columns 1 to 58 of every row of `table` and saves it as session.CurrentFile, also when the run was
// stopped. Afterwards CurrentFile is the day's name: the table then counts as new, with no file of that name.
// A page that cannot be fetched within 10 seconds leaves its cells as they are. Pages are fetched ahead and
// read in order; a host that stays silent is given up (giving_up_web.h). Before the first row the control
// word is "False"; the word of another hand ends the run after the ticker in work.
FundamentalsOutcome CollectExtendedFundamentals(Session& session, const FundamentalSources& sources,
                                                QuoteTable& table, const FundamentalsEnd& end = {});

}  // namespace brantlow
