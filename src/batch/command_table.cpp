#include "batch/command_table.h"

#include <fmt/format.h>

#include <array>

#include "base/dates.h"
#include "batch/chart_commands.h"
#include "batch/commands.h"
#include "batch/maintenance_commands.h"
#include "batch/source_commands.h"
#include "batch/table_commands.h"

namespace brantlow {

namespace {

std::optional<std::string> RefuseFolder(std::string_view text) {
    if (!text.empty()) return std::nullopt;
    return "a folder's name is missing";
}

std::optional<std::string> RefuseTime(std::string_view text) {
    if (ReadClockTime(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no time of the form HH:MM";
}

std::optional<std::string> RefuseWait(std::string_view text) {
    if (ReadSeconds(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no whole number of seconds from 0 to 86400";
}

constexpr std::array<CommandOption, 4> kGlobalOptions = {{
    {"--app", "DIR", "the application folder; without it the folder of the executable", RefuseFolder},
    {"--today", "YYYY-MM-DD", "the day that the call takes for today", RefuseDay},
    {"--time", "HH:MM", "the time of day that the call takes for now", RefuseTime},
    {"--wait", "SECONDS",
     "how long to wait while the window or another command uses the folder; 10 without it", RefuseWait},
}};

constexpr auto kCommands = std::to_array<Command>({
    kCatalogueCommand,     kSeriesCommand,
    kIndicatorsCommand,    kEvaluateCommand,
    kExplainCommand,       kSignalsCommand,
    kBackTestCommand,      kChartCommand,
    kSelectCommand,        kStudyCommand,
    kHistoryCommand,       kPopulateCommand,
    kUpdateCommand,        kFundamentalsCommand,
    kImportCommand,        kExportCommand,
    kAddCommand,           kDeleteCommand,
    kAlarmCommand,         kAlarmsCommand,
    kSplitCommand,         kSplitCalendarCommand,
    kPracticeCommand,      kScheduleCommand,
    kCombineCommand,       kRemoveLastUpdateCommand,
    kUndoCommand,          kCheckCommand,
    kBackUpCommand,        kRestoreCommand,
    kResearchCommand,      kSettingsCommand,
    kSourcesCommand,       kSymbolsCommand,
    kImportHistoryCommand,
});

std::string OptionText(const CommandOption& option) {
    return option.value.empty() ? std::string(option.name) : fmt::format("{} {}", option.name, option.value);
}

void AppendOptions(std::string& text, std::span<const CommandOption> options) {
    for (const CommandOption& option : options) {
        text += fmt::format("  {:<22}{}\n", OptionText(option), option.help);
    }
}

constexpr std::string_view kStatusHelp =
    "Exit status:\n"
    "  0    done\n"
    "  1    refused, or nothing of it could be done: the reason is on standard error\n"
    "  2    wrong usage: one line on standard error says which argument and why, nothing is changed\n"
    "  3    done in part: standard error says how many of what failed, and why\n"
    "  130  stopped by Ctrl-C; every file is whole\n";

}  // namespace

std::span<const Command> Commands() {
    return kCommands;
}

const Command* FindCommand(std::string_view name) {
    for (const Command& command : kCommands) {
        if (command.name == name) return &command;
    }
    return nullptr;
}

std::span<const CommandOption> GlobalOptions() {
    return kGlobalOptions;
}

std::string ToolHelp() {
    std::string text =
        "Usage: brantlow-batch [--app DIR] [--today YYYY-MM-DD] [--time HH:MM] [--wait SECONDS] COMMAND "
        "...\n\n";
    text += "Brantlow without a window: what the windows do with a file or a ticker, it does too.\n\n";
    text += "Commands:\n";
    for (const Command& command : kCommands)
        text += fmt::format("  {:<20}{}\n", command.name, command.summary);
    text += "\nOptions:\n";
    AppendOptions(text, kGlobalOptions);
    text += "  --help                this text; behind a command, that command's\n\n";
    text += "A FILE is a name in the folder Data of the application folder.\n\n";
    text += kStatusHelp;
    return text;
}

std::string CommandHelp(const Command& command) {
    std::string text = fmt::format("Usage: brantlow-batch {}", command.name);
    if (!command.usage.empty()) text.append(" ").append(command.usage);
    for (const CommandOption& option : command.options) text += fmt::format(" [{}]", OptionText(option));
    text += fmt::format("\n\n{}.\n{}", command.summary, command.help);
    text += "\nOptions:\n";
    AppendOptions(text, command.options);
    AppendOptions(text, kGlobalOptions);
    text += "  --help                this text\n\n";
    text += kStatusHelp;
    return text;
}

}  // namespace brantlow
