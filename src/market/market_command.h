// The command line of brantlow-market.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "base/files.h"

namespace brantlow {

struct MarketCommand {
    int port = 0;                 // 0 is any free one
    unsigned bytesPerSecond = 0;  // 0 is as fast as it goes
    std::optional<Date> today;    // else the clock's
    std::optional<Date> weeks;    // the day by whose weeks the prices stand; else today
    std::optional<Path> prices;   // else those of the installation
    std::optional<Path> hosts;    // a Hosts.ini to point to the market
    bool withParent = false;      // ends with the program that started it
    bool help = false;
};

// What came of reading a command line: a command, or a sentence that says what is wrong with it.
struct MarketCommandLine {
    MarketCommand command;
    std::string refusal;  // empty when the command can be run
};

// `arguments` without the program's name.
MarketCommandLine ReadMarketCommand(std::vector<std::string> arguments);

// Options, what is served where, and the faults.
std::string MarketHelp();

}  // namespace brantlow
