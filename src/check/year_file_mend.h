// Repairs of a ticker's year files that need no guess: lines without a record go, lines that stand twice go
// once, lines of another year move to its file, days are put in order. What a line says is never changed.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/files.h"
#include "check/finding.h"

namespace brantlow {

// A year file as it was read, or as it will be; one without bytes goes.
struct YearText {
    Path file;
    int year = 0;
    std::string bytes;
};

// True for the kinds of findings that MendYearFiles may repair.
bool IsMendable(FindingKind kind);

// The ticker's files repaired, as far as they can be; a record that belongs to a year without a file stays
// where it is.
std::vector<YearText> MendYearFiles(std::span<const YearText> files);

}  // namespace brantlow
