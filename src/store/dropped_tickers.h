// The tickers in a text that was dropped onto the window: a list of them, or a file whose lines begin with
// one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// Each once, in capitals, in the text's order. Where every piece of a line, between blanks, tabs, commas and
// semicolons, is written like a ticker in capitals, all of them are tickers; else the line's first piece is,
// where it looks like one in any case. A header line ("Symbol", "Ticker Symbol") is passed over.
std::vector<std::string> TickersIn(std::string_view text);

}  // namespace brantlow
