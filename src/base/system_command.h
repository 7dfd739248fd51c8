// Running another program of the system for a moment, for those who talk to its services. Callers take a
// CommandRunner, so that tests answer in the system's place.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

struct CommandResult {
    bool started = false;  // false when there is no such program, or it hung and was ended
    int status = -1;       // the exit status of a program that ended by itself
    std::string out;
    std::string err;

    bool Done() const { return started && status == 0; }
};

// Program and arguments, and the text on its standard input.
using CommandRunner =
    std::function<CommandResult(const std::vector<std::string>& command, std::string_view input)>;

// The program is looked for in $PATH, gets the environment of this one with messages in English, and is ended
// after ten seconds.
CommandResult RunSystemCommand(const std::vector<std::string>& command, std::string_view input);

}  // namespace brantlow
