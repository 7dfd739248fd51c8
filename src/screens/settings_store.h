// Writing settings from a screen: a table made ready beside the one in force goes to its file first and is
// read back from there, so that a file that cannot be written leaves everything as it was. The settings
// dialog and the setup wizard save through these routines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "base/files.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

// Writes `file` from `next` and reads it back into `settings`, with all that is derived from it. Returns the
// sentence that says why the file could not be written, with `settings` and the old file as they were; empty
// when done.
std::string StoreSettingsFile(SettingsFile file, const Path& appPath, const SettingsTables& next,
                              SettingsTables& settings);

// What a person is told of a settings file that cannot be written.
std::string CannotBeSaved(SettingsFile file, const std::error_code& error);

// The market whose address is QuoteHost, as an index of kMarkets; nothing for an address of the user's own.
std::optional<std::size_t> ChosenMarket(const Hosts& hosts, const SettingsTables& settings);

// Takes the address of kMarkets[market] into QuoteHost.
void ChooseMarket(std::size_t market, SettingsTables& settings);

// Sets the two lines that say where the quote database lies: in `folder`, or, without one, in its own
// place in the application folder.
void SetDatabasePlace(const std::optional<std::string>& folder, const Path& appPath,
                      SettingsTables& settings);

}  // namespace brantlow
