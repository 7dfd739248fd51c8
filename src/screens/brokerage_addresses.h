// Home pages of brokerage firms that the settings dialog offers. The user may enter any other address.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

inline constexpr std::array<std::string_view, 29> kBrokerageAddresses = {
    "https://www.ajbell.co.uk",    "https://www.ally.com/invest",
    "https://www.avanza.se",       "https://www.cmcmarkets.com",
    "https://www.comdirect.de",    "https://www.commsec.com.au",
    "https://www.consorsbank.de",  "https://www.degiro.com",
    "https://www.etrade.com",      "https://www.fidelity.com",
    "https://www.firstrade.com",   "https://www.flatex.de",
    "https://www.fineco.it",       "https://www.hl.co.uk",
    "https://www.ii.co.uk",        "https://www.interactivebrokers.com",
    "https://www.merrilledge.com", "https://www.nordnet.no",
    "https://www.questrade.com",   "https://www.robinhood.com",
    "https://www.saxobank.com",    "https://www.schwab.com",
    "https://www.sofi.com/invest", "https://www.swissquote.com",
    "https://www.tastytrade.com",  "https://www.tradestation.com",
    "https://www.vanguard.com",    "https://www.webull.com",
    "https://www.zackstrade.com",
};

}  // namespace brantlow
