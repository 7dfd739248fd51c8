// The command line of the batch tool, read by the command table.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "base/dates.h"
#include "base/files.h"
#include "batch/command.h"

namespace brantlow {

struct CommandLine {
    const Command* command = nullptr;
    Arguments arguments;
    std::optional<Path> app;
    std::optional<Date> today;
    std::optional<int> minutes;  // since midnight
    std::optional<int> wait;     // seconds to wait for the folder's lock
    std::string help;            // set when the call asks for help
    std::string error;           // set when the call cannot be read: the argument and why, one line
};

// `arguments` without the program's name.
CommandLine ParseCommandLine(std::span<const std::string> arguments);

}  // namespace brantlow
