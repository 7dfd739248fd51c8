#include "base/askable_ticker.h"

#include <algorithm>

#include "base/control_characters.h"

namespace brantlow {

namespace {

constexpr std::string_view kAddressMarks = "&#?%,";

bool SpoilsAddress(char c) {
    return c == ' ' || IsControl(c) || kAddressMarks.find(c) != std::string_view::npos;
}

}  // namespace

bool IsAskableTicker(std::string_view ticker) {
    return std::none_of(ticker.begin(), ticker.end(), SpoilsAddress);
}

std::string UnaskableTickerSentence(std::string_view ticker) {
    std::string sentence(ticker);
    std::replace_if(sentence.begin(), sentence.end(), IsControl, '?');
    return sentence.append(": ").append(kUnaskableReason);
}

}  // namespace brantlow
