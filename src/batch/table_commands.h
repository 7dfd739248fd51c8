// The rows of the command table that change a table of the Data folder or its database.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"
#include "batch/source_option.h"

namespace brantlow {

inline constexpr std::string_view kYesOption = "--yes";
inline constexpr std::string_view kHistoryOption = "--history";
inline constexpr std::string_view kHighOption = "--high";
inline constexpr std::string_view kLowOption = "--low";

inline constexpr std::array<CommandOption, 1> kUpdateOptions = {{kSourceOption}};
ExitStatus RunUpdate(BatchCall& call);
inline constexpr Command kUpdateCommand = {
    .name = "update",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kUpdateOptions,
    .summary = "Brings the quotes of an end-of-day file up to date",
    .help =
        R"(Everything that follows an update under the stored settings follows it here: the quotes enter the
database, the split calendar is looked at, the file is saved, the selector runs. Ctrl-C stops at the
next batch: what came until then is stored, and the exit status is 130.
)",
    .writes = AlwaysWrites,
    .run = RunUpdate,
};

inline constexpr std::array<CommandOption, 1> kImportOptions = {{
    {kYesOption, "",
     "go on where more tickers come in than a table holds, and with a file of the program's own"},
}};
ExitStatus RunImport(BatchCall& call);
inline constexpr Command kImportCommand = {
    .name = "import",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kImportOptions,
    .summary = "Imports quotes from a text file into an end-of-day file and the database",
    .help =
        R"(Which file is imported and what its fields are stands in VTRIMEXset.ini. FILE is saved; the imported
file is deleted once everything in it is stored.
)",
    .settings = kExchangeSettings,
    .writes = AlwaysWrites,
    .run = RunImport,
};

inline constexpr std::array<CommandOption, 1> kExportOptions = {{
    {kYesOption, "", "write over a file of the program's own"},
}};
ExitStatus RunExport(BatchCall& call);
inline constexpr Command kExportCommand = {
    .name = "export",
    .usage = "FILE",
    .operand = "FILE",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kExportOptions,
    .summary = "Exports a file for another program",
    .help =
        R"(Where the export goes and which columns it holds stands in VTRIMEXset.ini. A settings
file, a table of Data or a file of the quote database is not replaced without --yes.
)",
    .settings = kExchangeSettings,
    .writes = AlwaysWrites,
    .run = RunExport,
};

ExitStatus RunAdd(BatchCall& call);
inline constexpr Command kAddCommand = {
    .name = "add",
    .usage = "FILE TICKER...",
    .operand = "FILE TICKER",
    .fewestOperands = 2,
    .mostOperands = kAnyNumber,
    .summary = "Adds tickers with their history to a file",
    .help = "The file is sorted by ticker and saved. A ticker that it holds already is passed over.\n",
    .settings = kDownloadSettings,
    .writes = AlwaysWrites,
    .run = RunAdd,
};

inline constexpr std::array<CommandOption, 1> kDeleteOptions = {{
    {kHistoryOption, "", "delete the tickers' history from the database too"},
}};
ExitStatus RunDelete(BatchCall& call);
inline constexpr Command kDeleteCommand = {
    .name = "delete",
    .usage = "FILE TICKER...",
    .operand = "FILE TICKER",
    .fewestOperands = 2,
    .mostOperands = kAnyNumber,
    .options = kDeleteOptions,
    .summary = "Deletes tickers from a file",
    .help = "The file is saved. Its last ticker stays.\n",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunDelete,
};

std::optional<std::string> RefuseAlarm(std::string_view text);
inline constexpr std::array<CommandOption, 2> kAlarmOptions = {{
    {kHighOption, "X", "the price from which the high alarm fires; empty for none", RefuseAlarm},
    {kLowOption, "Y", "the price down to which the low alarm fires; empty for none", RefuseAlarm},
}};
ExitStatus RunAlarm(BatchCall& call);
inline constexpr Command kAlarmCommand = {
    .name = "alarm",
    .usage = "FILE TICKER",
    .operand = "FILE TICKER",
    .fewestOperands = 2,
    .mostOperands = 2,
    .options = kAlarmOptions,
    .summary = "Sets the price alarms of a ticker",
    .help =
        "An alarm that is not given stays as it is. A file without the alarm's column is refused. The file\n"
        "is saved.\n",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunAlarm,
};

inline constexpr std::string_view kReadAlarmsOption = "--read";
inline constexpr std::string_view kTestMailOption = "--test-mail";
inline constexpr std::array<CommandOption, 2> kAlarmsOptions = {{
    {kReadAlarmsOption, "", "the list is read: it ends", nullptr},
    {kTestMailOption, "", "send a mail of no alarm, to see whether mails arrive", nullptr},
}};
// The list is changed only by being read.
bool ForgetsAlarms(const Arguments& arguments);
ExitStatus RunAlarms(BatchCall& call);
inline constexpr Command kAlarmsCommand = {
    .name = "alarms",
    .usage = "",
    .operand = "",
    .options = kAlarmsOptions,
    .summary = "Lists the price alarms that updates noticed",
    .help =
        "One JSON object a line, oldest first: when, ticker, price, kind (high or low), limit, table, and "
        "whether\n"
        "it was mailed. An alarm stands in the list until --read. update mails what fired where "
        "VTRMAILset.ini\n"
        "says so, and what an earlier mail could not bring.\n",
    .settings = kMailSettings,
    .writes = ForgetsAlarms,
    .run = RunAlarms,
};

}  // namespace brantlow
