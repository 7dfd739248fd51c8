#include "screens/settings_store.h"

namespace brantlow {

std::string CannotBeSaved(SettingsFile file, const std::error_code& error) {
    return SettingsFileName(file) + ": cannot be saved (" + error.message() + ")";
}

std::string StoreSettingsFile(SettingsFile file, const Path& appPath, const SettingsTables& next,
                              SettingsTables& settings) {
    const std::error_code error = WriteSettingsFile(file, appPath, next);
    if (error) return CannotBeSaved(file, error);
    LoadSettingsFile(file, appPath, settings);
    return {};
}

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
