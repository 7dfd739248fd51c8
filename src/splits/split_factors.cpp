#include "splits/split_factors.h"

#include <charconv>

namespace brantlow {

namespace {

std::optional<int> ShareCount(std::string_view text) {
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count <= 0) return std::nullopt;
    return count;
}

}  // namespace

const SplitBand* BandOfFactor(double factor) {
    for (const SplitBand& band : kSplitBands) {
        if (band.Factor() == factor) return &band;
    }
    return nullptr;
}

std::optional<double> ParseSplitFactor(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const std::optional<int> newShares = ShareCount(text.substr(0, slash));
    const std::optional<int> oldShares = ShareCount(text.substr(slash + 1));
    if (!newShares || !oldShares) return std::nullopt;
    return static_cast<double>(*newShares) / *oldShares;
}

}  // namespace brantlow
