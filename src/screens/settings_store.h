// What the settings dialog and the setup wizard both put into settings: the market and the place of the quote
// database.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "base/files.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

// The market whose address is QuoteHost, as an index of kMarkets; nothing for an address of the user's own.
std::optional<std::size_t> ChosenMarket(const Hosts& hosts, const SettingsTables& settings);

// Takes the address of kMarkets[market] into QuoteHost.
void ChooseMarket(std::size_t market, SettingsTables& settings);

// Sets the two lines that say where the quote database lies: in `folder`, or, without one, in its own
// place in the application folder.
void SetDatabasePlace(const std::optional<std::string>& folder, const Path& appPath,
                      SettingsTables& settings);

}  // namespace brantlow
