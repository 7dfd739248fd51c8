#include "research/saved_page.h"

#include <algorithm>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostNameBytes = 200;
// The separators of the platforms that such a file may be carried to, and what their names cannot hold.
constexpr std::string_view kNotInNames = "/\\:*?\"<>|";

bool CanStandInName(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= ' ' && code != 0x7F && kNotInNames.find(c) == std::string_view::npos;
}

// Cuts between characters, never within one.
std::string_view Shortened(std::string_view name) {
    constexpr unsigned kTopBits = 0xC0;
    constexpr unsigned kFollowingByte = 0x80;
    if (name.size() <= kMostNameBytes) return name;
    std::size_t length = kMostNameBytes;
    while (length > 0 && (static_cast<unsigned char>(name[length]) & kTopBits) == kFollowingByte) --length;
    return name.substr(0, length);
}

}  // namespace

std::string PageFileName(std::string_view title) {
    std::string name;
    for (const char c : title) {
        const char kept = CanStandInName(c) ? c : ' ';
        if (kept != ' ' || (!name.empty() && name.back() != ' ')) name += kept;
    }
    std::string_view text = Trim(name);
    text.remove_prefix(std::min(text.find_first_not_of(". "), text.size()));
    text = Trim(Shortened(text));
    return text.empty() ? "Page" : std::string(text);
}

std::string WithPageEnding(std::string file) {
    if (!UpperCase(file).ends_with(UpperCase(kPageEnding))) file += kPageEnding;
    return file;
}

}  // namespace brantlow
