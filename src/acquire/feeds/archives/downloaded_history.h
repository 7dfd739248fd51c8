// One text file of a downloaded archive: the days of one ticker. Two forms are known, told apart by the names
// in the first line:
//
//     <TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>     20240102
//     Date,Open,High,Low,Close,Volume                                              2024-01-02
//
// The columns are found by their names, in any case and order; the volume may be missing, others are passed
// over.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "acquire/feeds/live/source_rows.h"
#include "acquire/feeds/live/symbol_notation.h"

namespace brantlow {

// How the files spell tickers: aapl.us, brk-b.us, bac_k.us, ^spx.
const SymbolNotation& ArchiveNotation();

// Whether a file may be a ticker's: a text or csv file whose name is no hidden one.
bool IsHistoryFileName(std::string_view name);
// The symbol that a file's name tells, "aapl.us" of "data/daily/us/nasdaq stocks/1/AAPL.US.txt". Names that
// a system reserves begin with an underscore, which is left out.
std::string SymbolOfFileName(std::string_view name);

struct DownloadedHistory {
    // As the rows tell it, where they do, else as the file's name does.
    std::string symbol;
    // Oldest first; days before 1930, which the database cannot tell from later ones, are left out.
    SourceBars days;
    // Of the refusal in `days`, from 1; 0 where it is about no line.
    std::size_t line = 0;
};

// Reads a file. Refused, with its line: a first line without the columns, rows of other lengths, of several
// tickers, of minutes, a day that is none, is still to come or comes twice, a price or volume that is none.
// A close that is not above 0 is passed over, unless more than one in ten are so. A file without rows has no
// days.
DownloadedHistory ReadDownloadedHistory(std::string_view name, std::string_view bytes,
                                        std::chrono::sys_days today);

}  // namespace brantlow
