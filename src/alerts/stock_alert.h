// The alert by e-mail: when a price alarm fires, the vendor's site is asked to send a mail, once a ticker in
// a run of the program.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// The tickers for which a mail was asked, at most kMostRows. main() owns the one that lasts until exit.
struct AlertedTickers {
    std::unordered_set<std::string> tickers;
    // Those whose alarms a person has been told of: in the list, by mail, on the screen.
    std::unordered_set<std::string> told;
};

// The request's address: the mail address and the ticker stand in it as they are, without line ends.
std::string StockAlertUrl(const Hosts& hosts, std::string_view address, std::string_view ticker);

enum class AlertOutcome {
    NotWanted,  // alerts are off, or a mail was asked for already
    AskedFor,
    LeftOut,  // the ticker cannot stand in an address
};

// Asks for the mail when the settings have alerts switched on and none was asked for this ticker; an address
// that is empty is no hindrance. Waits for the reply for a short while and does not read it; a request that
// fails is not repeated. `run`, when its word becomes "True", ends the wait.
AlertOutcome SendStockAlert(Web& web, const Hosts& hosts, const SettingsTables& settings,
                            std::string_view ticker, AlertedTickers& alerted, const RunControl* run);

}  // namespace brantlow
