// Every host the program talks to. Data/Hosts.ini holds one `Name=base address` a line (scheme included, no
// slash at the end, # begins a comment); a name that is missing there has its built-in value. Addresses are
// built from a host here and a path of their own; nothing else in the program holds a host.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "base/files.h"
#include "shell/settings/default_hosts.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

inline constexpr const char* kHostsFileName = "Hosts.ini";

// A line of a Hosts.ini that the practice market has written. A file without it is a user's own.
inline constexpr std::string_view kPracticeMarketMark = "# practice market";

enum class Host {
    Quote,
    History,
    YahooBiz,
    YahooScreen,
    NasdaqMain,
    NasdaqQuotes,
    NasdaqNews,
    NasdaqEarnings,
    NasdaqDynamic,
    NasdaqScreening,
    Vendor
};

struct HostRow {
    Host host;
    std::string_view name;
    std::string_view builtIn;
};

inline constexpr std::array<HostRow, 11> kHosts = {
    {{Host::Quote, "QuoteHost", kUnitedStatesQuoteHost},
     {Host::History, "HistoryHost", "https://history.brantlow.example"},
     {Host::YahooBiz, "YahooBizHost", "https://biz.brantlow.example"},
     {Host::YahooScreen, "YahooScreenHost", "https://screen.brantlow.example"},
     {Host::NasdaqMain, "NasdaqMainHost", "https://exchange.brantlow.example"},
     {Host::NasdaqQuotes, "NasdaqQuotesHost", "https://exchange-quotes.brantlow.example"},
     {Host::NasdaqNews, "NasdaqNewsHost", "https://exchange-news.brantlow.example"},
     {Host::NasdaqEarnings, "NasdaqEarningsHost", "https://exchange-earnings.brantlow.example"},
     {Host::NasdaqDynamic, "NasdaqDynamicHost", "https://exchange-dynamic.brantlow.example"},
     {Host::NasdaqScreening, "NasdaqScreeningHost", "https://exchange-screening.brantlow.example"},
     {Host::Vendor, "VendorHost", "https://www.brantlow.example"}}};

// How a market's quote host writes numbers: 1.5 between commas, or 1,5 between semicolons.
enum class Decimals { Point, Comma };

struct MarketRow {
    // The option of the settings dialog that chooses the market.
    std::string_view control;
    // As the dialog shows it, and behind "Market." in Hosts.ini.
    std::string_view name;
    std::string_view builtIn;
    Decimals decimals;
};

inline constexpr std::array<MarketRow, 22> kMarkets = {
    {{"Option70", "US", kUnitedStatesQuoteHost, Decimals::Point},
     {"Option71", "UK", "https://uk.quotes.brantlow.example", Decimals::Point},
     {"Option72", "Australia", "https://au.quotes.brantlow.example", Decimals::Point},
     {"Option73", "Germany", "https://de.quotes.brantlow.example", Decimals::Comma},
     {"Option74", "Mexico", "https://mx.quotes.brantlow.example", Decimals::Point},
     {"Option75", "France", "https://fr.quotes.brantlow.example", Decimals::Comma},
     {"Option76", "Hong Kong", "https://hk.quotes.brantlow.example", Decimals::Point},
     {"Option77", "Singapore", "https://sg.quotes.brantlow.example", Decimals::Point},
     {"Option78", "Norway", "https://no.quotes.brantlow.example", Decimals::Comma},
     {"Option79", "Sweden", "https://se.quotes.brantlow.example", Decimals::Point},
     {"Option80", "Japan", "https://jp.quotes.brantlow.example", Decimals::Point},
     {"Option81", "Canada E", "https://ca.quotes.brantlow.example", Decimals::Point},
     {"Option82", "India", "https://in.quotes.brantlow.example", Decimals::Point},
     {"Option83", "Spain", "https://es.quotes.brantlow.example", Decimals::Point},
     {"Option84", "Argentina", "https://ar.quotes.brantlow.example", Decimals::Comma},
     {"Option85", "Brazil", "https://br.quotes.brantlow.example", Decimals::Comma},
     {"Option86", "China", "https://cn.quotes.brantlow.example", Decimals::Point},
     {"Option87", "Korea", "https://kr.quotes.brantlow.example", Decimals::Point},
     {"Option88", "Taiwan", "https://tw.quotes.brantlow.example", Decimals::Point},
     {"Option89", "Denmark", "https://dk.quotes.brantlow.example", Decimals::Comma},
     {"Option90", "Canada F", "https://cf.quotes.brantlow.example", Decimals::Point},
     {"Option91", "Italy", "https://it.quotes.brantlow.example", Decimals::Comma}}};

class Hosts {
  public:
    // The built-in addresses.
    Hosts();

    // The addresses of a Hosts.ini. A line that is no comment and no known name with an http or https address
    // is ignored; of two lines with one name the later counts; slashes at an address's end are dropped.
    static Hosts Parse(std::string_view text);

    const std::string& Address(Host host) const;

    // The host of quotes, key statistics, analyst and research pages: the chosen market's address when the
    // settings hold one, else QuoteHost. The settings' loader puts the built-in United States address where
    // the file has none, so that address counts as no choice. A market that is chosen by its built-in address
    // is asked at the one that Hosts.ini gives it.
    const std::string& QuoteHostInForce(const SettingsTables& settings) const;

    // True when `quoteHost` is the address of one of the seven markets that write 1,5 for 1.5.
    bool HasDecimalCommas(std::string_view quoteHost) const;

    // The market whose address, in force or built in, is `quoteHost`, as an index of kMarkets; the first of
    // several.
    std::optional<std::size_t> MarketAt(std::string_view quoteHost) const;

    // True when the file bears the practice market's mark: quotes are not those of the day then, and a window
    // says so.
    bool IsPracticeMarket() const { return practiceMarket_; }

  private:
    void TakeLine(std::string_view line);
    std::string* SlotOf(std::string_view name);

    std::array<std::string, kHosts.size()> hosts_;
    std::array<std::string, kMarkets.size()> markets_;
    bool quoteHostNamed_ = false;
    bool practiceMarket_ = false;
};

// The hosts of the application folder; the built-in ones when it has no Hosts.ini, or none that can be read:
// then `failure`, unless null, says why.
Hosts LoadHosts(const Path& dataFolder, Failure* failure = nullptr);

}  // namespace brantlow
