// All commands of the batch tool, in the order in which its help lists them. A command is added by one row.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "batch/command.h"

namespace brantlow {

std::span<const Command> Commands();

// Null for a word that is no command.
const Command* FindCommand(std::string_view name);

// The options of every call, in front of the command or behind it.
std::span<const CommandOption> GlobalOptions();

std::string ToolHelp();
std::string CommandHelp(const Command& command);

}  // namespace brantlow
