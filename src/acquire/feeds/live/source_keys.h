// The keys of live sources: from the environment, else from Data/Keys.ini, a `name=key` a line. A key goes
// into requests and nowhere else: no log, no sentence, no copy of the data holds one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "acquire/feeds/live/source_definition.h"
#include "base/files.h"

namespace brantlow {

// The value of an environment variable, or null.
using Environment = std::function<const char*(const char* name)>;
Environment SystemEnvironment();

struct SourceKey {
    std::string id;
    std::string secret;  // of a pair
};

struct KeyRead {
    std::optional<SourceKey> key;  // empty parts for a source that needs none
    std::string refusal;           // why there is none, without a character of it
};

KeyRead ReadSourceKey(const SourceDefinition& source, const Path& dataFolder, const Environment& environment);

// "BRANTLOW_KEY_TWELVE_DATA" for "twelve-data".
std::string KeyVariable(std::string_view sourceName);

// Why `text` cannot be kept as the key of `source`, or empty.
std::string KeyRefusal(const SourceDefinition& source, std::string_view text);

// Puts the key into Data/Keys.ini, for the user's eyes only; an empty text takes it out. Other lines stay.
std::error_code WriteSourceKey(const Path& dataFolder, std::string_view sourceName, std::string_view text);

// `pattern` with {key}, {id} and {secret} in their places, percent-encoded where it goes into an address.
enum class KeyPlace { Header, Address };
std::string WithKey(std::string_view pattern, const SourceKey& key, KeyPlace place);

}  // namespace brantlow
