// Keys and passwords of services: from the environment, else from Data/Keys.ini, a `name=key` a line. A key
// goes into requests and nowhere else: no log, no sentence, no copy of the data holds one.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/files.h"

namespace brantlow {

// The value of an environment variable, or null.
using Environment = std::function<const char*(const char* name)>;
Environment SystemEnvironment();

// "BRANTLOW_KEY_TWELVE_DATA" for "twelve-data".
std::string KeyVariable(std::string_view name);

// The key of that name, empty where there is none. A file that others could read is closed to them.
std::string FindKey(const Path& dataFolder, std::string_view name, const Environment& environment);

// Why `text` can be nobody's key, or empty.
std::string KeyTextRefusal(std::string_view text);

// Puts the key into Data/Keys.ini, for the user's eyes only; an empty text takes it out. Other lines stay.
std::error_code WriteSourceKey(const Path& dataFolder, std::string_view name, std::string_view text);

}  // namespace brantlow
