#include "market/market_request.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kFaultName = "fault";
constexpr std::string_view kFaultSegment = "/fault=";

std::optional<char> ByteOf(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return static_cast<char>(static_cast<unsigned char>(value));
}

// The first segment of a path with its slash.
std::string_view FirstSegment(std::string_view path) {
    return path.substr(0, path.find('/', 1));
}

const MarketRow* MarketBehind(std::string_view segment) {
    const auto found = std::find_if(kMarkets.begin(), kMarkets.end(), [&](const MarketRow& market) {
        return segment.size() > 1 && MarketPrefix(market) == segment;
    });
    return found == kMarkets.end() ? nullptr : &*found;
}

// Takes a segment that chooses from the front of the path; false for one that does not.
bool TakeSegment(MarketRequest& request) {
    const std::string_view segment = FirstSegment(request.path);
    if (const MarketRow* market = MarketBehind(segment)) {
        request.decimals = market->decimals;
    } else if (segment.starts_with(kFaultSegment)) {
        request.fault = segment.substr(kFaultSegment.size());
    } else {
        return false;
    }
    request.path.remove_prefix(segment.size());
    return true;
}

}  // namespace

MarketRequest ReadRequest(std::string_view target) {
    MarketRequest request;
    request.target = target;
    const std::size_t mark = target.find('?');
    request.path = target.substr(0, mark);
    if (mark != std::string_view::npos) request.query = target.substr(mark + 1);
    // A market and a fault, in any order.
    if (TakeSegment(request)) TakeSegment(request);
    if (request.path.empty()) request.path = "/";
    const std::string asked = QueryValue(request.query, kFaultName);
    if (!asked.empty()) request.fault = asked;
    return request;
}

std::string QueryValue(std::string_view query, std::string_view name) {
    for (const std::string_view piece : SplitAt(query, '&')) {
        const std::size_t equals = piece.find('=');
        if (equals == std::string_view::npos || piece.substr(0, equals) != name) continue;
        return WithoutPercents(piece.substr(equals + 1));
    }
    return {};
}

std::string WithoutPercents(std::string_view text) {
    constexpr std::size_t kDigits = 2;
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte =
            text[i] == '%' && text.size() - i > kDigits ? ByteOf(text.substr(i + 1, kDigits)) : std::nullopt;
        bytes += byte.value_or(text[i]);
        if (byte) i += kDigits;
    }
    return bytes;
}

std::string MarketPrefix(const MarketRow& market) {
    if (market.builtIn == kUnitedStatesQuoteHost) return {};
    // The built-in address begins with the market's letters.
    constexpr std::string_view kScheme = "https://";
    const std::string_view host = market.builtIn.substr(kScheme.size());
    return std::string("/").append(host.substr(0, host.find('.')));
}

}  // namespace brantlow
