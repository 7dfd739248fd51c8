// A definition of a live source as a file of the user's own, to be edited: a further source under a name of
// its own, or one that takes the place of a built-in one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "acquire/feeds/live/source_catalogue.h"

namespace brantlow {

// Why `name` cannot be the name of a copy of `source`: characters that no source's name has, a source that is
// there, a file that is there. Empty where it can; the name of a built-in source without a file of the user's
// is one that can.
std::string CopyNameRefusal(const SourceCatalogue& catalogue, const Path& dataFolder, std::string_view name);

// The user's file that defines the source of this name; nothing for one that the program brings along.
std::optional<Path> OwnDefinitionFile(const Path& dataFolder, std::string_view name);

struct SourceCopy {
    Path file;  // Data/Sources/NAME.json
    std::string refusal;
};
// Writes the definition of `source` under `name`; one with a name of its own is told apart by its title.
SourceCopy CopySource(const SourceCatalogue& catalogue, const Path& dataFolder, std::string_view source,
                      std::string_view name);

}  // namespace brantlow
