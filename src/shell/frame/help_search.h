// The search over all pages of the help.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace brantlow {

// A section of a page that holds what was searched for.
struct HelpHit {
    std::string page;     // its file name
    std::string place;    // the anchor of its heading; empty for what stands before the first one
    std::string title;    // of the page
    std::string section;  // the heading's words; the page's title where it has none
    std::string text;     // the words around the first find, about a line

    bool operator==(const HelpHit&) const = default;
};

// The sections of the HTML pages in `folder` that hold every one of the words, in capitals or not. Those with
// all words in their heading come first, otherwise pages by file name and sections in their order. Contents
// and index are no places to find something. Blanks alone find nothing.
std::vector<HelpHit> SearchHelp(const Path& folder, std::string_view words);

}  // namespace brantlow
