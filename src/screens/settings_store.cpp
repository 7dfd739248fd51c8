#include "screens/settings_store.h"

namespace brantlow {

std::optional<std::size_t> ChosenMarket(const Hosts& hosts, const SettingsTables& settings) {
    return hosts.MarketAt(settings.QuoteHost);
}

// The address that the program was built with stands for the market: what a Hosts.ini puts in its place may
// be another one tomorrow.
void ChooseMarket(std::size_t market, SettingsTables& settings) {
    settings.QuoteHost = kMarkets.at(market).builtIn;
}

void SetDatabasePlace(const std::optional<std::string>& folder, const Path& appPath,
                      SettingsTables& settings) {
    const std::string place = folder ? *folder : (appPath / kOwnDatabaseFolder).string();
    Set(settings, kDatabaseIsElsewhere, folder.has_value());
    Set(settings, kDatabaseFolder, place);
}

}  // namespace brantlow
