// The names of pages that the browser window saves.
#pragma once

#include <string>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kPageEnding = ".htm";

// A page's title (UTF-8) as the name of a file, without an ending: what no file name can hold becomes a
// blank, blanks at the ends and points in front go, and a title that leaves nothing is called "Page". Never
// longer than 200 bytes.
std::string PageFileName(std::string_view title);

// The name of a file with the ending; one that has it already, in any case, stays as it is.
std::string WithPageEnding(std::string file);

}  // namespace brantlow
