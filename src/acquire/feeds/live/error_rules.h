// Tells a good reply of a live source from a failure: the rules of its definition first, then what a status
// means everywhere. Status 200 proves nothing.
#pragma once

#include <string>
#include <string_view>

#include "acquire/feeds/live/source_definition.h"
#include "acquire/feeds/live/source_keys.h"

namespace brantlow {

// Rows for a reply that may be read; else the failure with the server's words. Waits are those of the rules.
SourceOutcome JudgeReply(const SourceDefinition& source, int status, std::string_view bytes);

// `words` with *** in the place of the key, should a server repeat it.
std::string WithoutKey(std::string_view words, const SourceKey& key);

}  // namespace brantlow
