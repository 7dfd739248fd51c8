// The keys of live sources, which stand where all keys do (shell/keys.h), under the source's name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "acquire/feeds/live/source_definition.h"
#include "shell/keys.h"

namespace brantlow {

struct SourceKey {
    std::string id;
    std::string secret;  // of a pair
};

struct KeyRead {
    std::optional<SourceKey> key;  // empty parts for a source that needs none
    std::string refusal;           // why there is none, without a character of it
};

KeyRead ReadSourceKey(const SourceDefinition& source, const Path& dataFolder, const Environment& environment);

// Why `text` cannot be kept as the key of `source`, or empty.
std::string KeyRefusal(const SourceDefinition& source, std::string_view text);

// `pattern` with {key}, {id} and {secret} in their places, percent-encoded where it goes into an address.
enum class KeyPlace { Header, Address };
std::string WithKey(std::string_view pattern, const SourceKey& key, KeyPlace place);

}  // namespace brantlow
