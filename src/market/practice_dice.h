// Numbers that look like chance and are always the same: what the practice prices do not tell (earnings,
// spreads, recommendations) is drawn from a ticker and a word, so that it stays as it is.
#pragma once

#include <string_view>

namespace brantlow {

// A number from 0 up to but not including 1, drawn from the two texts alone.
double ShareOf(std::string_view subject, std::string_view word);

// The same between two bounds.
double Between(std::string_view subject, std::string_view word, double low, double high);

}  // namespace brantlow
