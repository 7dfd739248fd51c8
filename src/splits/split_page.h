// The stock split calendar page, read character by character. It is bound to the page's layout: cells whose
// tag ends in "middle>", and a link to the ticker whose address ends in "d=t".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// The page's path behind the address of its host.
inline constexpr std::string_view kSplitCalendarPath = "/c/s.html";

// A split as the page tells it.
struct PageSplit {
    std::string ticker;
    std::string date;
    std::string ratio;  // new and old shares with "-" between

    bool operator==(const PageSplit&) const = default;
};

// True for markup that holds one of the marks by which the calendar is read: another page is none.
bool IsSplitPage(std::string_view markup);

// The splits of a page's markup, in its order, at most kMostRows of them; any text is taken. A split is there
// once its ticker, its date and its ratio have come up. The date is the last cell of more than two characters
// before the ticker; the ratio is the first cell with a hyphen, or any cell after it.
std::vector<PageSplit> SplitsOfPage(std::string_view markup);

// New shares divided by old shares. The new shares are taken from as many characters at the begin of `ratio`
// as stand behind the hyphen: "10-1" is 1. 0 when there is no factor in the text.
double FactorOfRatio(std::string_view ratio);

}  // namespace brantlow
