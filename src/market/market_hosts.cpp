#include "market/market_hosts.h"

#include <fmt/format.h>

#include "acquire/web/hosts.h"
#include "base/numbers.h"
#include "base/values.h"
#include "market/live_sources.h"
#include "market/market_request.h"

namespace brantlow {

namespace {}  // namespace

std::string MarketHostsText(std::string_view base) {
    std::string text;
    const auto add = [&](std::string_view line) { text.append(line).append(kLineEnd); };
    add(kPracticeMarketMark);
    add("# Written anew whenever the practice market starts; without the line above it is left alone.");
    for (const HostRow& row : kHosts) add(fmt::format("{}={}", row.name, base));
    for (const MarketRow& market : kMarkets) {
        add(fmt::format("Market.{}={}{}", market.name, base, MarketPrefix(market)));
    }
    for (const std::string_view source : kPlayedSources) add(fmt::format("Source.{}={}", source, base));
    // A market on this machine needs no patience.
    for (const std::string_view source : kPlayedSources) add(fmt::format("Limit.{}=1000/1", source));
    return text;
}

HostsResult PointHosts(const Path& file, std::string_view base) {
    const ReadResult old = ReadWholeFile(file);
    if (old.outcome == ReadOutcome::Failed) return {HostsOutcome::Failed, old.error};
    const bool ours = old.outcome == ReadOutcome::Missing || Hosts::Parse(old.bytes).IsPracticeMarket();
    if (!ours) return {HostsOutcome::Foreign, {}};
    const std::error_code error = WriteWholeFile(file, MarketHostsText(base));
    return {error ? HostsOutcome::Failed : HostsOutcome::Written, error};
}

std::optional<int> PortInHosts(const Path& file) {
    const Hosts hosts = Hosts::Parse(BytesOrEmpty(file));
    if (!hosts.IsPracticeMarket()) return std::nullopt;
    const std::string& address = hosts.Address(Host::Quote);
    const auto port = WholeNumber(std::string_view(address).substr(address.rfind(':') + 1));
    if (!port || *port < 1 || *port > kHighestPort) return std::nullopt;
    return static_cast<int>(*port);
}

}  // namespace brantlow
