#include "shell/help_pages.h"

#include <algorithm>

namespace brantlow {

std::string_view HelpPageOf(std::string_view window) {
    const auto found = std::find_if(kWindowHelp.begin(), kWindowHelp.end(),
                                    [&](const WindowHelp& row) { return row.window == window; });
    return found == kWindowHelp.end() ? kHelpContents : found->page;
}

}  // namespace brantlow
