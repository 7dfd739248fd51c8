// Filling the quote database from the web: one ticker's history when it is added to a table or a chart finds
// no data, and every ticker's of the open table when the database is built.
//
// A downloaded history takes the place of all files the ticker had. So does a failed download, which leaves
// the ticker without data and says nothing. Years are those of line 6 of DataSettings.
#pragma once

#include <cstddef>
#include <string_view>
#include <system_error>
#include <vector>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kUserSource = "User Selected String";

inline constexpr std::string_view kDataExistsSentence =
    "Data for this Ticker Symbol already exists in your database. To download historical data for this "
    "Ticker Symbol, you must first delete the Data from the Database. Click on the Delete Ticker Symbol Icon "
    "and Select, Delete. Then Type in the Symbol in the Symbol Box and click Add Ticker Symbol.";
inline constexpr std::string_view kNoSourceSentence =
    "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.";

enum class HistoryOutcome {
    Stored,
    NoData,      // nothing came, or nothing of use: the ticker has no files now
    DataExists,  // refused with kDataExistsSentence, nothing was touched
    NoSource,    // refused with kNoSourceSentence, nothing was touched
    NoTicker,    // an empty ticker: nothing was touched
    NoFiles,     // a ticker that can have no files (store/year_files.h): nothing was fetched or touched
    Failed,      // a file could not be written; it is what it was, the others are right
};

struct HistoryDownload {
    HistoryOutcome outcome = HistoryOutcome::NoTicker;
    std::size_t days = 0;   // in the database afterwards
    std::error_code error;  // set when Failed
};

// Downloads the history of `ticker` from the chosen source. Refused when this year's file of the ticker has a
// record; files of other years do not count.
HistoryDownload DownloadTickerHistory(Session& session, Web& web, const Hosts& hosts,
                                      std::string_view ticker);

// Downloads the history of `ticker` from the standard source, whatever the settings say, and whatever the
// database holds.
HistoryDownload PopulateTicker(Session& session, Web& web, const Hosts& hosts, std::string_view ticker);

struct PopulateRun {
    std::size_t tickers = 0;  // worked on
    std::size_t stored = 0;   // with data afterwards
    bool stopped = false;
    std::error_code error;  // the first file that could not be written
};

// PopulateTicker for every row of `table`, the open one. When session.CurrentFile is an end-of-day file, the
// histories of all its tickers are deleted first. Stops after the current ticker when the run's control word
// asks for it.
PopulateRun PopulateDatabase(Session& session, Web& web, const Hosts& hosts, const QuoteTable& table);

// The offer of frmErrorReport: deletes the histories of all tickers of "Error Report.txt" and downloads them
// anew from the chosen source. Stops at once where there is none, and after the current ticker when the run's
// control word asks for it.
PopulateRun RepopulateReported(Session& session, Web& web, const Hosts& hosts);

}  // namespace brantlow
