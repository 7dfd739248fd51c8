// The live sources that there are: those that the program brings along, those of an installation's Sources
// folder, and the user's own in Data/Sources. Of two with one name the user's counts.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_definition.h"
#include "base/files.h"

namespace brantlow {

// A definition that the program brings along.
struct BuiltInSource {
    std::string_view fileName;
    std::string_view json;
};
std::span<const BuiltInSource> BuiltInSources();

struct SourceCatalogue {
    // By name.
    std::vector<SourceDefinition> sources;
    // One sentence for each file that was refused: file, place, reason.
    std::vector<std::string> refusals;

    // Null for a name that no definition has.
    const SourceDefinition* Find(std::string_view name) const;
};

// `dataFolder`/Sources holds the user's definitions; it may be missing.
SourceCatalogue LoadSources(const Path& dataFolder);

}  // namespace brantlow
