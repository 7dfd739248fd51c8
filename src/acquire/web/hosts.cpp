#include "acquire/web/hosts.h"

#include <algorithm>

#include "acquire/web/web.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kMarketPrefix = "Market.";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// An address without slashes at its end, empty when it is none.
std::string_view BaseAddress(std::string_view text) {
    const bool oneWord = text.find_first_of(" \t") == std::string_view::npos;
    if (!oneWord || !IsWebAddress(text)) return {};
    return text.substr(0, text.find_last_not_of('/') + 1);
}

std::optional<std::size_t> MarketBuiltInAt(std::string_view address) {
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        if (kMarkets[i].builtIn == address) return i;
    }
    return std::nullopt;
}

constexpr std::size_t IndexOf(Host host) {
    return static_cast<std::size_t>(host);
}

}  // namespace

Hosts::Hosts() {
    std::transform(kHosts.begin(), kHosts.end(), hosts_.begin(),
                   [](const HostRow& row) { return std::string(row.builtIn); });
    std::transform(kMarkets.begin(), kMarkets.end(), markets_.begin(),
                   [](const MarketRow& row) { return std::string(row.builtIn); });
}

Hosts Hosts::Parse(std::string_view text) {
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
    Hosts hosts;
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) hosts.TakeLine(Trim(line));
    return hosts;
}

void Hosts::TakeLine(std::string_view line) {
    if (line == kPracticeMarketMark) practiceMarket_ = true;
    const std::size_t equals = line.find('=');
    if (line.empty() || line.front() == '#' || equals == std::string_view::npos) return;
    const std::string_view name = Trim(line.substr(0, equals));
    const std::string_view address = BaseAddress(Trim(line.substr(equals + 1)));
    std::string* slot = SlotOf(name);
    if (slot == nullptr || address.empty()) return;
    *slot = address;
    if (slot == &hosts_[IndexOf(Host::Quote)]) quoteHostNamed_ = true;
}

std::string* Hosts::SlotOf(std::string_view name) {
    const auto host =
        std::find_if(kHosts.begin(), kHosts.end(), [&](const HostRow& row) { return row.name == name; });
    if (host != kHosts.end()) return &hosts_[IndexOf(host->host)];
    if (name.substr(0, kMarketPrefix.size()) != kMarketPrefix) return nullptr;
    name.remove_prefix(kMarketPrefix.size());
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        if (kMarkets[i].name == name) return &markets_[i];
    }
    return nullptr;
}

const std::string& Hosts::Address(Host host) const {
    // Without a line of its own the quote host is that of the United States market.
    if (host == Host::Quote && !quoteHostNamed_) return markets_.front();
    return hosts_.at(IndexOf(host));
}

const std::string& Hosts::QuoteHostInForce(const SettingsTables& settings) const {
    const bool chosen = !settings.QuoteHost.empty() && settings.QuoteHost != kUnitedStatesQuoteHost;
    if (!chosen) return Address(Host::Quote);
    const auto market = MarketBuiltInAt(settings.QuoteHost);
    return market ? markets_[*market] : settings.QuoteHost;
}

bool Hosts::HasDecimalCommas(std::string_view quoteHost) const {
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        if (kMarkets[i].decimals == Decimals::Comma && markets_[i] == quoteHost) return true;
    }
    return false;
}

std::optional<std::size_t> Hosts::MarketAt(std::string_view quoteHost) const {
    const auto found = std::find(markets_.begin(), markets_.end(), quoteHost);
    if (found == markets_.end()) return MarketBuiltInAt(quoteHost);
    return static_cast<std::size_t>(found - markets_.begin());
}

Hosts LoadHosts(const Path& dataFolder, Failure* failure) {
    std::string bytes;
    Failure met = ReadIfThere(dataFolder / kHostsFileName, bytes);
    if (failure != nullptr) *failure = std::move(met);
    return Hosts::Parse(bytes);
}

}  // namespace brantlow
