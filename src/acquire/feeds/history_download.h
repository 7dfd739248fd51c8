// Filling the quote database from the web: one ticker's history when it is added to a table or a chart finds
// no data, and every ticker's of the open table when the database is built.
//
// A downloaded history takes the place of all files the ticker had. A download fails when no reply comes, or
// one that is cut, empty or a web page; what becomes of the stored history then is a choice of the settings
// (KeepsHistoryOnFailure): it is kept, or the ticker has no data afterwards. A reply without days is no
// failure. Years are those of line 6 of DataSettings. Every run leaves session.CurrentTicker as it was.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "base/file_change.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kDataExistsSentence =
    "Data for this Ticker Symbol already exists in your database. To download historical data for this "
    "Ticker Symbol, you must first delete the Data from the Database. Click on the Delete Ticker Symbol Icon "
    "and Select, Delete. Then Type in the Symbol in the Symbol Box and click Add Ticker Symbol.";
inline constexpr std::string_view kNoSourceSentence =
    "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.";

inline constexpr std::string_view kSelectTimeFrame = "You must select a database time frame.";

// Whether the settings name years to populate by.
bool HasHistoryYears(const SettingsTables& settings);

enum class HistoryOutcome {
    Stored,
    NoData,      // the source answered that it has no day of it: the ticker has no files now
    Unknown,     // the source has no page of it; its files are those that the settings keep
    NoReply,     // the download failed; the ticker's files are those that the settings keep
    DataExists,  // refused with kDataExistsSentence, nothing was touched
    NoSource,    // refused with kNoSourceSentence, nothing was touched
    NoTicker,    // an empty ticker: nothing was touched
    LeftOut,     // a ticker that cannot be asked for at the standard source: nothing was touched
    NoFiles,     // a ticker that can have no files (store/year_files.h): nothing was fetched or touched
    Failed,      // a file could not be written; it is what it was, the others are right
};

struct HistoryDownload {
    HistoryOutcome outcome = HistoryOutcome::NoTicker;
    std::size_t days = 0;    // in the database afterwards
    Failure error = {};      // set when Failed
    std::string why = {};    // a sentence, set when NoReply, LeftOut, NoFiles or Failed
    bool isChanged = false;  // files of the ticker were written or deleted
};

// Takes what became of one ticker into the report of a run.
void TellHistory(std::string_view ticker, const HistoryDownload& download, RunReport& report);
// Whether this year's file of the ticker has a record: a download is refused then. A file that cannot be read
// is a failure, and refuses it as well.
Failure FindDataOfThisYear(const Session& session, std::string_view ticker, bool& hasData);

// Downloads the history of `ticker` from the chosen source. Refused when this year's file of the ticker has a
// record; files of other years do not count.
HistoryDownload DownloadTickerHistory(Session& session, Web& web, const Hosts& hosts,
                                      std::string_view ticker);

// The same as a part of a change of files, which the caller commits.
HistoryDownload PrepareTickerDownload(Session& session, Web& web, const Hosts& hosts, std::string_view ticker,
                                      FileChange& change);

// The tickers of the table, one a row.
std::vector<std::string> TickersOf(const QuoteTable& table);

// How many of the tickers have a stored history; one that stands twice counts once.
std::size_t TickersWithHistory(const Session& session, const std::vector<std::string>& tickers);

// What a window asks before a run that replaces several histories.
inline constexpr std::string_view kReplaceTitle = "Replace History?";
std::string ReplaceQuestion(std::size_t stored, std::size_t tickers);

struct PopulateRun {
    std::size_t tickers = 0;  // worked on
    std::size_t stored = 0;   // with data afterwards
    bool stopped = false;
    Failure error;  // a file that could not be written: no history was changed
    RunReport report;
};

// Downloads the history of every row of `table`, the open one, from the standard source, whatever the
// settings say of it, and whatever the database holds. When session.CurrentFile is an end-of-day file and the
// settings do not keep them, the histories of all its tickers are deleted first. A host that stays silent is
// given up (giving_up_web.h). Stops after the current ticker when the run's control word asks for it. All
// histories are one change that can be undone, and with `Years::Stored` the settings that name them.
enum class Years { AsTheyAre, Stored };
PopulateRun PopulateDatabase(Session& session, Web& web, const Hosts& hosts, const QuoteTable& table,
                             Years years = Years::AsTheyAre);

// The offer of frmErrorReport: deletes the histories of all tickers of "Error Report.txt", unless the
// settings keep them, and downloads them anew from the chosen source. Stops at once where there is none, and
// after the current ticker when the run's control word asks for it.
PopulateRun RepopulateReported(Session& session, Web& web, const Hosts& hosts);

}  // namespace brantlow
