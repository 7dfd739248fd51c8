// Reading the pages of fundamentals: the visible text of a page in, cells of one row of an extended
// fundamentals table out. Any text is taken; what is not found leaves its cell as it is.
//
// Cells hold whole units (1.50B is 1500000000). A plain value of 0, and one that is no number, writes
// nothing; a zero with a suffix, of an estimate and of a growth rate is a value.
#pragma once

#include <cstddef>
#include <string_view>

#include "acquire/feeds/fundamental_labels.h"
#include "store/quote_table.h"

namespace brantlow {

// `text` is the page's visible text (page_text.h), of which the first kMostPageLines lines are read. Labels
// stand at the start of a line, in any case; of two lines with one label the later one counts.
void ParseKeyStatistics(std::string_view text, QuoteTable& table, std::size_t row);
void ParseAnalystOpinion(std::string_view text, QuoteTable& table, std::size_t row);
void ParseAnalystEstimates(std::string_view text, QuoteTable& table, std::size_t row);

// The same by the kind of page.
void ParseFundamentalPage(FundamentalPage page, std::string_view text, QuoteTable& table, std::size_t row);

}  // namespace brantlow
