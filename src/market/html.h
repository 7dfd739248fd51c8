// The few pieces of HTML that the practice market's pages are made of.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace brantlow {

// `text` as it may stand in a page: markup, quotes and control bytes lose their meaning.
std::string Escaped(std::string_view text);

// A table row; the cells are markup.
std::string TableRow(std::initializer_list<std::string_view> cells);

// A whole page. The title is text, the body is markup.
std::string HtmlPage(std::string_view title, std::string_view body);

}  // namespace brantlow
