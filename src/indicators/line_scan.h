// Finds the lines of a year file and the least number of commas in one of them, in a single pass over the
// text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brantlow {

// A line without its LF. A CR before it is still there.
struct LineSpan {
    std::uint32_t start;
    std::uint32_t end;
};

// Adds the lines of text[from, to) to `lines` and returns the number of commas in the line that has fewest (a
// very large number when there is no line). A last line without a line end counts. Offsets stay below 2^32.
std::size_t ScanLines(const char* text, std::size_t from, std::size_t to, std::vector<LineSpan>& lines);

}  // namespace brantlow
