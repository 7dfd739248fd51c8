// One command of the batch tool: what its call looks like, its help, and the routine behind it. The table of
// all commands is in command_table.h; each command family has a file of its own.
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_change.h"
#include "base/files.h"
#include "indicators/working_series.h"
#include "shell/session.h"
#include "shell/settings/settings_needs.h"

namespace brantlow {

// The exit status of a call.
enum class ExitStatus : int {
    Done = 0,
    Refused = 1,
    Usage = 2,
    Partly = 3,         // some of what was asked for failed, the rest is done
    Interrupted = 130,  // as a shell counts a program that Ctrl-C ended
};

// An option of a command. `value` names its value in the help; empty for a switch.
struct CommandOption {
    std::string_view name;
    std::string_view value;
    std::string_view help;
    // Why `text` cannot be the option's value, or nothing. Null for a switch and where any text serves.
    std::optional<std::string> (*refuse)(std::string_view text) = nullptr;
};

struct Arguments {
    std::vector<std::string> operands;
    std::map<std::string, std::string, std::less<>> options;  // a switch holds ""

    bool Has(std::string_view option) const { return options.find(option) != options.end(); }
    // Empty when the option was not given.
    std::string Text(std::string_view option) const;
};

// What a command works with.
struct BatchCall {
    Session& session;
    const Arguments& arguments;
    // The installation's files: first-run Data/, practice/.
    const Path& assets;
    std::ostream& out;
    std::ostream& err;
    // True once a person has asked the call to stop.
    bool (*interrupted)();
    // The batch tool's own file.
    const Path& executable;
    // The call has taken a change back that was cut off (shell/session_change.h).
    bool tookChangeBack = false;
};

inline constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

struct Command {
    std::string_view name;
    // The operands as the usage line shows them, and as an error names them ("TICKER").
    std::string_view usage;
    std::string_view operand;
    std::size_t fewestOperands = 0;
    std::size_t mostOperands = 0;
    std::span<const CommandOption> options = {};
    std::string_view summary;  // one line
    std::string_view help;     // further lines, each ended
    // False for a command that makes the application folder, or needs none.
    bool needsAppFolder = true;
    // The settings files that the command goes by: the call refuses where one of them cannot be read.
    SettingsNeeds settings = kAnySettings;
    // Whether a call changes files of the application folder, and so takes its lock; null for a command that
    // only reads.
    bool (*writes)(const Arguments& arguments) = nullptr;
    ExitStatus (*run)(BatchCall& call) = nullptr;
};

// For commands that write whatever their arguments are.
bool AlwaysWrites(const Arguments& arguments);

// The option by which several commands are told where their result goes.
inline constexpr std::string_view kOutOption = "--out";

// `--interval`, which several commands take.
std::optional<Interval> ParseInterval(std::string_view word);
std::string_view IntervalArgument(Interval interval);
std::optional<std::string> RefuseInterval(std::string_view text);
inline constexpr CommandOption kIntervalOption = {"--interval", "I",
                                                  "daily (as without it), weekly or monthly", RefuseInterval};
// `--as-of`, which every command takes that looks at the newest bar: the history ends on that day, which is
// also the call's today.
std::optional<std::string> RefuseDay(std::string_view text);
inline constexpr CommandOption kAsOfOption = {"--as-of", "YYYY-MM-DD",
                                              "as it stood on this day, with what was known then", RefuseDay};
// Daily when the option was not given.
Interval ChosenInterval(const Arguments& arguments);

// A day "YYYY-MM-DD" from 1900 on, and minutes since midnight of "HH:MM"; nothing for any other text.
std::optional<Date> ReadIsoDate(std::string_view text);
std::optional<int> ReadClockTime(std::string_view text);

// Whole seconds, from 0 to those of a day; nothing for any other text.
std::optional<int> ReadSeconds(std::string_view text);

// Writes `NAME: REASON` as one line to the call's error stream and gives Usage.
ExitStatus RefuseUsage(BatchCall& call, std::string_view name, std::string_view reason);
// Writes a sentence as one line to the call's error stream and gives Refused.
ExitStatus Refuse(BatchCall& call, std::string_view sentence);
ExitStatus Refuse(BatchCall& call, const Failure& failure);

// The sentence of a change of files that failed, one line: Refused, or Partly where its files are half
// changed.
ExitStatus RefuseChange(BatchCall& call, std::string_view what, const Failure& fault);

// Text that came from outside, fit to stand in a line on a terminal: control characters become "?".
std::string OneLine(std::string_view text);

// The path of a FILE operand, when it names a regular file in the Data folder or below it. Otherwise nothing,
// and the call's error stream has the sentence: the command ends with Refused.
std::optional<Path> ExistingDataFile(BatchCall& call, std::string_view name);
// Whether `name` stays in the Data folder: relative, not empty, without "..".
bool StaysInDataFolder(std::string_view name);

}  // namespace brantlow
