// The rows of the command table, one or more from each command family's file.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"
#include "batch/source_option.h"

namespace brantlow {

ExitStatus RunCatalogue(BatchCall& call);
inline constexpr Command kCatalogueCommand = {
    .name = "catalogue",
    .usage = "",
    .operand = "",
    .summary = "Prints the names of the selector's tests, one a line",
    .help = "",
    .needsAppFolder = false,
    .settings = {},
    .run = RunCatalogue,
};

std::optional<std::string> RefuseWindow(std::string_view text);
inline constexpr std::array<CommandOption, 3> kSeriesOptions = {{
    kIntervalOption,
    kAsOfOption,
    {"--window", "N", "keep the newest N bars; 0, as without it, stands for 279", RefuseWindow},
}};
inline constexpr std::array<CommandOption, 2> kIntervalOptions = {{kIntervalOption, kAsOfOption}};
inline constexpr std::string_view kJsonHelp =
    R"(One JSON object a line, one line a ticker, in the order given. Several tickers share one working series,
as they do in a selector run. An element that nothing has written since the call began is null.
)";

ExitStatus RunSeries(BatchCall& call);
inline constexpr Command kSeriesCommand = {
    .name = "series",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kSeriesOptions,
    .summary = "Prints the working series of tickers as JSON",
    .help = kJsonHelp,
    .settings = kDatabaseSettings,
    .run = RunSeries,
};

ExitStatus RunIndicators(BatchCall& call);
inline constexpr Command kIndicatorsCommand = {
    .name = "indicators",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kIntervalOptions,
    .summary = "Prints the indicators of tickers as JSON",
    .help = kJsonHelp,
    .settings = kDatabaseSettings,
    .run = RunIndicators,
};

ExitStatus RunEvaluate(BatchCall& call);
inline constexpr Command kEvaluateCommand = {
    .name = "evaluate",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kIntervalOptions,
    .summary = "Prints which tests and conditions hold on the newest bar as JSON",
    .help = kJsonHelp,
    .settings = kConditionSettings,
    .run = RunEvaluate,
};

ExitStatus RunExplain(BatchCall& call);
inline constexpr Command kExplainCommand = {
    .name = "explain",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kIntervalOptions,
    .summary = "Prints why each condition holds or not, line by line, as JSON",
    .help =
        R"(One JSON object a line, one line a ticker, in the order given. Under conditions each tested line with its
state, True, False or empty where it is passed over and why, and the values that the test looked at: name,
bar (0 the newest) and value; for a value slot its number x.
)",
    .settings = kConditionSettings,
    .run = RunExplain,
};

ExitStatus RunSignals(BatchCall& call);
inline constexpr Command kSignalsCommand = {
    .name = "signals",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kIntervalOptions,
    .summary = "Prints the chart's Buy and Sell signals bar by bar as JSON",
    .help =
        R"(One JSON object a line, one line a ticker, in the order given. BuySignal and SellSignal hold "True",
"False" or "" for each bar, by the two conditions that the settings choose for the chart; a side set to
None prints an empty array.
)",
    .settings = kChartSettings,
    .run = RunSignals,
};

ExitStatus RunBackTestCommand(BatchCall& call);
inline constexpr Command kBackTestCommand = {
    .name = "backtest",
    .usage = "TICKER...|FILE",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kIntervalOptions,
    .summary = "Prints what trading on the chart's signals would have earned as JSON",
    .help =
        R"(One JSON object a line, one line a ticker, in the order given: a lot of 1000 shares is bought and sold
on the chart's signals with a commission of 0.5%. Under labels stand the texts of the report by control
name. With an end-of-day FILE.ddq the pair is replayed over every ticker of the table: one object with the
sums and the list of trades. Refuses when the settings choose no condition for a side.
)",
    .settings = kChartSettings,
    .run = RunBackTestCommand,
};

std::optional<std::string> RefuseEvaluationName(std::string_view text);
inline constexpr std::array<CommandOption, 3> kSelectOptions = {{
    kIntervalOption,
    kAsOfOption,
    {kOutOption, "NAME.dbe", "save the table under this name in Data, not as Evaluations.dbe",
     RefuseEvaluationName},
}};
ExitStatus RunSelect(BatchCall& call);
inline constexpr Command kSelectCommand = {
    .name = "select",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kSelectOptions,
    .summary = "Runs the ten conditions over every ticker of an end-of-day file",
    .help =
        R"(The table of results is saved as Evaluations.dbe, the working file that every run makes anew.
Tickers with too little history are listed in Error Report.txt. Prints the count of tickers, the
hits of each condition and the short tickers. With --as-of the run needs --out and
writes that table only. Ctrl-C stops at the next ticker: the rows so far are saved and counted, and
the exit status is 130.
)",
    .settings = kSelectorRunSettings,
    .writes = AlwaysWrites,
    .run = RunSelect,
};

std::optional<std::string> RefuseStudyInterval(std::string_view text);
std::optional<std::string> RefuseHorizons(std::string_view text);
std::optional<std::string> RefuseCost(std::string_view text);
std::optional<std::string> RefuseFileName(std::string_view text);
std::optional<std::string> RefuseHoldings(std::string_view text);
std::optional<std::string> RefuseCondition(std::string_view text);
inline constexpr std::array<CommandOption, 11> kStudyOptions = {{
    {"--interval", "I", "daily (as without it) or weekly", RefuseStudyInterval},
    {"--from", "YYYY-MM-DD", "the first day that is evaluated; 364 days before the last without it",
     RefuseDay},
    {"--to", "YYYY-MM-DD", "the last day that is evaluated; today without it", RefuseDay},
    {"--horizons", "1,5,20,60", "bars that a share is held, from 1 to 1000", RefuseHorizons},
    {"--cost", "PERCENT", "of each purchase and each sale, from 0 to below 100; 0.5 without it", RefuseCost},
    {"--every-day", "", "every day on which a condition holds is a signal, not only the first of a row"},
    {"--signals", "OUT.csv", "write the list of all signals into this file", RefuseFileName},
    {"--portfolio", "N", "an equity curve instead: at most N shares held at a time, 1 to 1000",
     RefuseHoldings},
    {"--buy", "CONDITION", "whose signals the portfolio buys; the first Buy without it", RefuseCondition},
    {"--sell", "CONDITION", "whose signals end a holding of the portfolio sooner", RefuseCondition},
    {"--hold", "BARS", "how long the portfolio holds a share; 20 without it", RefuseHoldings},
}};
ExitStatus RunStudyCommand(BatchCall& call);
inline constexpr Command kStudyCommand = {
    .name = "study",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kStudyOptions,
    .summary = "Prints what the ten conditions would have earned over all tickers of an end-of-day file",
    .help =
        R"(For each day of the span and each ticker the conditions are judged with what was known on that day. Bought
is at the close of the bar after a signal, sold so many bars later. One JSON object: the mean return of any
day (baseline) and, by condition and horizon, count, mean, median, share above 0, excess over the baseline
with its standard error. The tickers are those of today's table: shares that vanished are missing. Ctrl-C
ends the walk: the figures are of the tickers so far, and the exit status is 130.
)",
    .settings = kConditionSettings,
    .run = RunStudyCommand,
};

std::optional<std::string> RefuseFundamentalsName(std::string_view text);
inline constexpr std::array<CommandOption, 2> kFundamentalsOptions = {{
    {"--source", "NAME", "fill the empty cells of FILE from this live source instead, and save it",
     RefuseSourceName},
    {kOutOption, "NAME.efq", "save the table under this name in Data, not as ExtendedFundamentals.efq",
     RefuseFundamentalsName},
}};
ExitStatus RunFundamentals(BatchCall& call);
inline constexpr Command kFundamentalsCommand = {
    .name = "fundamentals",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kFundamentalsOptions,
    .summary = "Collects the extended fundamentals of every ticker of an end-of-day file",
    .help =
        R"(The table is saved as ExtendedFundamentals.efq, the working file that every run makes anew. Prints
the count of tickers and those whose pages gave no value; indexes (^DJI) have no such pages. Ctrl-C
stops at the next ticker: the rows so far are saved, and the exit status is 130.
)",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunFundamentals,
};

inline constexpr std::array<CommandOption, 1> kHistoryOptions = {{kSourceOption}};
ExitStatus RunHistory(BatchCall& call);
inline constexpr Command kHistoryCommand = {
    .name = "history",
    .usage = "TICKER...",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = kAnyNumber,
    .options = kHistoryOptions,
    .summary = "Downloads the history of tickers, as adding them to a table does",
    .help =
        R"(As many years as the settings say, from the source that the settings choose. A ticker that has data of
this year is refused. One whose download fails keeps what it had of earlier years where line 1 of
VTROWNset.ini says "Keep", and loses it elsewhere. Prints the count of days stored, one line a ticker.
)",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunHistory,
};

std::optional<std::string> RefuseYears(std::string_view text);
// Takes the years of --years into the settings, which are stored with the histories; false after a sentence.
bool TakeYears(BatchCall& call);
inline constexpr std::array<CommandOption, 2> kPopulateOptions = {{
    kSourceOption,
    {"--years", "N", "2, 5, 10 or 20 years back; kept in the settings for later calls", RefuseYears},
}};
ExitStatus RunPopulate(BatchCall& call);
inline constexpr Command kPopulateCommand = {
    .name = "populate",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kPopulateOptions,
    .summary = "Downloads the history of every ticker of a file",
    .help =
        R"(Replaces the tickers' histories. A ticker whose download fails keeps its own where line 1 of VTROWNset.ini
says "Keep"; elsewhere those of an end-of-day file are deleted before the first download. Prints the count
of tickers and how many have data now. Ctrl-C stops after the current ticker: every file is whole, and the
exit status is 130.
)",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunPopulate,
};

inline constexpr std::string_view kReplaceNewerOption = "--replace";
inline constexpr std::array<CommandOption, 2> kImportHistoryOptions = {{
    {"--years", "N", "the newest 2, 5, 10 or 20 years alone; all without it", RefuseYears},
    {kReplaceNewerOption, "", "replace histories too whose days are newer than those that come"},
}};
ExitStatus RunImportHistory(BatchCall& call);
inline constexpr Command kImportHistoryCommand = {
    .name = "import-history",
    .usage = "FROM [FILE]",
    .operand = "FROM FILE",
    .fewestOperands = 1,
    .mostOperands = 2,
    .options = kImportHistoryOptions,
    .summary = "Imports histories from a downloaded archive or folder into the database",
    .help =
        R"(FROM is a zip archive, a folder or one text file, with a file a ticker: aapl.us.txt, whose first line
names its columns (<TICKER>,<PER>,<DATE>,... or Date,Open,High,Low,Close,Volume). The tickers are those of
FILE, all without it. A history that comes takes the place of the stored one; its prices are adjusted for
splits and dividends, so that a live source whose prices are not adds no days to it. A file that cannot be
right is told with its line and costs its ticker alone. Ctrl-C stops at the next file: what came until then
is stored. One change, which undo takes back.
)",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunImportHistory,
};

ExitStatus RunSplit(BatchCall& call);
inline constexpr Command kSplitCommand = {
    .name = "split",
    .usage = "TICKER NEW/OLD",
    .operand = "TICKER",
    .fewestOperands = 2,
    .mostOperands = 2,
    .summary = "Restates a ticker's history for a stock split",
    .help =
        R"(NEW/OLD is new shares by old shares: 2/1, 3/2, 1/10. The day of the split is the most recent jump of
the prices that fits; without one nothing changes, so that a second call does no harm.
)",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunSplit,
};

inline constexpr std::array<CommandOption, 1> kSplitCalendarOptions = {{kSourceOption}};

ExitStatus RunSplitCalendar(BatchCall& call);
inline constexpr Command kSplitCalendarCommand = {
    .name = "split-calendar",
    .usage = "",
    .operand = "",
    .options = kSplitCalendarOptions,
    .summary = "Reads the split calendar and restates the histories whose split is past",
    .help =
        R"(Splits wait in SplitLog.txt until their day is past. Prints how many the log holds, how many of them
are due, and how many showed in the prices and were restated.
)",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunSplitCalendar,
};

inline constexpr std::array<CommandOption, 1> kPracticeOptions = {{
    {"--replace", "", "write over a practice table and its history that are there already"},
}};
ExitStatus RunPractice(BatchCall& call);
inline constexpr Command kPracticeCommand = {
    .name = "practice",
    .usage = "",
    .operand = "",
    .options = kPracticeOptions,
    .summary = "Fills the application folder with the practice table and its history",
    .help =
        R"(Real prices of the past, each ticker's dates moved by whole weeks to the days before today. Makes
Practice.ddq in Data and the year files; what a first start needs is made too where it is missing.
)",
    .needsAppFolder = false,
    .settings = kDatabaseSettings,
    .writes = AlwaysWrites,
    .run = RunPractice,
};

std::optional<std::string> RefuseAt(std::string_view text);
std::optional<std::string> RefuseDays(std::string_view text);
inline constexpr std::array<CommandOption, 3> kScheduleOptions = {{
    {"--at", "HH:MM", "update every day at this time and have Brantlow started 5 minutes earlier", RefuseAt},
    {"--days", "DAYS", "on these days; mon,tue,wed,thu,fri without it", RefuseDays},
    {"--remove", "", "remove the scheduled start"},
}};
bool ChangesSchedule(const Arguments& arguments);
ExitStatus RunSchedule(BatchCall& call);
inline constexpr Command kScheduleCommand = {
    .name = "schedule",
    .usage = "",
    .operand = "",
    .options = kScheduleOptions,
    .summary = "Shows, installs or removes the scheduled start of Brantlow",
    .help =
        R"(Without an option it shows what is installed. The start is a timer of the user's systemd where
systemctl --user answers, else a line of the user's crontab; other lines there stay as they are.
The time of the update itself is kept in the data settings, and stays there with --remove.
)",
    .settings = kDatabaseSettings,
    .writes = ChangesSchedule,
    .run = RunSchedule,
};

ExitStatus RunResearch(BatchCall& call);
inline constexpr Command kResearchCommand = {
    .name = "research",
    .usage = "COMMAND [TICKER]",
    .operand = "COMMAND",
    .fewestOperands = 1,
    .mostOperands = 2,
    .summary = "Prints the address that a research command opens",
    .help =
        R"(COMMAND is the name of a menu entry: mnuPopUpNews, mnuViewSplits, mnuHelpSupport. The provider, the
market and the brokerage firm are those of the settings. An entry of the right-click menu needs a
TICKER, which stands in the address as it is given; with an empty one nothing is printed. The other
entries pay no heed to it.
)",
    .settings = kPageSettings,
    .run = RunResearch,
};

ExitStatus RunSettings(BatchCall& call);
inline constexpr Command kSettingsCommand = {
    .name = "settings",
    .usage = "[FILE.ini]",
    .operand = "FILE.ini",
    .mostOperands = 1,
    .summary = "Prints the settings tables as JSON",
    .help =
        R"(One object with an array for each table: its first element is line 1 of the table's file. With a
FILE.ini only that file's table.
)",
    .settings = {},  // it tells itself
    .run = RunSettings,
};

}  // namespace brantlow
