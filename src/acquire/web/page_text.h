// The visible text of a page, with the line structure that a reader sees. The update, the fundamentals and
// the version check look for labels and values in it.
//
// Lines end with CR LF. The cells of a table row run together on one line with nothing between them
// ("1.231.45" for 1.23 and 1.45). Head, scripts and styles give no text; br, blocks, rows, headings and list
// items break lines; white space collapses, except in pre; a non-breaking space is a blank that stays.
#pragma once

#include <string>
#include <string_view>

#include "acquire/web/page_limits.h"

namespace brantlow {

// The text of a reply. Only HTML is read as a page: what `contentType` calls so, or what begins with "<"
// where it names nothing; a page without any tag is no page. Everything else passes byte for byte.
std::string PageText(std::string_view bytes, std::string_view contentType);

// The visible text of a page in UTF-8; empty for one that goes over the limits.
std::string VisibleText(std::string_view html, const PageLimits& limits = {});

}  // namespace brantlow
