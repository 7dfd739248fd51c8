// Base addresses the program talks to when no settings file names another: scheme included, no slash at the
// end. The settings loader and the web rooms use them.
#pragma once

#include <string_view>

namespace brantlow {

// Quotes of the United States market, the market of an installation that has chosen none.
inline constexpr std::string_view kUnitedStatesQuoteHost = "https://quotes.brantlow.example";

}  // namespace brantlow
