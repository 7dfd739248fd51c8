// The desktop program's command line. main() asks twice: before there is a window toolkit, for what needs
// none, and again once the toolkit has taken its own arguments away.
#pragma once

#include <optional>
#include <string>

namespace brantlow {

struct StartOptions {
    // Started by the system for the daily run.
    bool scheduled = false;
    // Begins with an update of the quotes, or with a run of the Stock Selector.
    bool update = false;
    bool select = false;
    // A table to open in place of the one that was open last; empty without one. Absolute where the file lies
    // in the folder of the call, else as it was given: a name of the folder Data.
    std::string file;
};

// A call that ends before any window opens: what it prints, and how it ends.
struct StartAnswer {
    std::string text;
    bool isError = false;
};

// The answer to --version and --help; nothing for any other call, wrong ones included.
std::optional<StartAnswer> AnswerWithoutWindow(int argc, const char* const* argv);

// Reads a call. Nothing, with the reason in `answer`, for a wrong one.
std::optional<StartOptions> ReadStartOptions(int argc, const char* const* argv, StartAnswer& answer);

}  // namespace brantlow
