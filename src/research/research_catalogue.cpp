#include "research/research_catalogue.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/askable_ticker.h"
#include "base/text.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

constexpr std::string_view kTickerMark = "{T}";

const std::string& HostAddress(Host host, const ResearchSources& sources) {
    return host == Host::Quote ? sources.hosts.QuoteHostInForce(sources.settings)
                               : sources.hosts.Address(host);
}

// The first character of a ticker, which takes several bytes where it is none of ASCII; of text in another
// encoding than UTF-8 the first byte.
std::string_view FirstCharacter(std::string_view ticker) {
    constexpr unsigned kTopBits = 0xC0;
    constexpr unsigned kFollowingByte = 0x80;
    std::size_t length = 1;
    const auto follows = [&](char c) { return (static_cast<unsigned char>(c) & kTopBits) == kFollowingByte; };
    if (DisplayUtf8(ticker) == ticker) {
        while (length < ticker.size() && follows(ticker[length])) ++length;
    }
    return ticker.substr(0, length);
}

// What stands for `{mark}` in a path.
std::string_view MarkText(std::string_view mark, const ResearchSources& sources, std::string_view ticker) {
    if (mark == "T") return ticker;
    if (mark == "L") return FirstCharacter(ticker);
    const auto host =
        std::find_if(kHosts.begin(), kHosts.end(), [&](const HostRow& row) { return row.name == mark; });
    return host == kHosts.end() ? std::string_view() : HostAddress(host->host, sources);
}

std::string Filled(std::string_view path, const ResearchSources& sources, std::string_view ticker) {
    std::string text;
    for (std::size_t open = path.find('{'); open != std::string_view::npos; open = path.find('{')) {
        const std::size_t close = path.find('}', open);
        text += path.substr(0, open);
        text += MarkText(path.substr(open + 1, close - open - 1), sources, ticker);
        path.remove_prefix(close + 1);
    }
    return text.append(path);
}

const VendorPage* FindVendorPage(std::string_view command) {
    const auto found = std::find_if(kVendorPages.begin(), kVendorPages.end(),
                                    [&](const VendorPage& page) { return page.command == command; });
    return found == kVendorPages.end() ? nullptr : &*found;
}

bool IsBrokerageCommand(std::string_view command) {
    return std::find(kBrokerageCommands.begin(), kBrokerageCommands.end(), command) !=
           kBrokerageCommands.end();
}

ResearchTarget BrokerageTarget(const SettingsTables& settings) {
    const std::string& address = Get(settings, kBrokerage);
    if (address.empty()) return {OpensIn::Nothing, {}, std::string(kNoBrokerageFirm)};
    return {OpensIn::OutsideBrowser, address, {}};
}

bool StandsForItself(char c) {
    constexpr std::string_view kMarks = "-._~@!*'(),;:";
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           kMarks.find(c) != std::string_view::npos;
}

std::string QueryText(std::string_view value) {
    std::string text;
    for (const char c : value) {
        if (StandsForItself(c)) {
            text += c;
        } else {
            text += fmt::format("%{:02X}", static_cast<unsigned char>(c));
        }
    }
    return text;
}

}  // namespace

const ResearchPage* FindResearchPage(std::string_view command) {
    const auto found = std::find_if(kResearchPages.begin(), kResearchPages.end(),
                                    [&](const ResearchPage& page) { return page.command == command; });
    return found == kResearchPages.end() ? nullptr : &*found;
}

bool IsTickerPage(const ResearchPage& page) {
    return page.yahoo.path.find(kTickerMark) != std::string_view::npos;
}

std::string AddressOf(const ResearchPage& page, const ResearchSources& sources, std::string_view ticker) {
    const bool yahoo = Get(sources.settings, kWebContent) == WebContent::Yahoo;
    const PageAddress& address = yahoo ? page.yahoo : page.nasdaq;
    return HostAddress(address.host, sources) + Filled(address.path, sources, ticker);
}

bool IsResearchCommand(std::string_view command) {
    return FindResearchPage(command) != nullptr || FindVendorPage(command) != nullptr ||
           IsBrokerageCommand(command);
}

ResearchTarget TargetOf(std::string_view command, const ResearchSources& sources, std::string_view ticker) {
    if (const ResearchPage* page = FindResearchPage(command)) {
        if (IsTickerPage(*page) && ticker.empty()) return {};
        if (IsTickerPage(*page) && !IsAskableTicker(ticker)) {
            return {OpensIn::Nothing, {}, UnaskableTickerSentence(ticker)};
        }
        return {OpensIn::Browser, AddressOf(*page, sources, ticker), {}};
    }
    if (const VendorPage* page = FindVendorPage(command)) {
        return {OpensIn::OutsideBrowser, sources.hosts.Address(Host::Vendor) + std::string(page->path), {}};
    }
    if (IsBrokerageCommand(command)) return BrokerageTarget(sources.settings);
    return {};
}

std::string ForumAddress(const Hosts& hosts, std::string_view name, std::string_view password) {
    return hosts.Address(Host::Vendor) + "/UserForum/BullitenBoard/UFlogin.asp?UN=" + QueryText(name) +
           "&PW=" + QueryText(password);
}

}  // namespace brantlow
