// The live sources that a person has chosen, one for each capability and one for what the first does not
// know. Their names stand in Data/VTRSRCset.ini, a written value a line; an empty line is the standard
// source.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <system_error>

#include "acquire/feeds/live/source_catalogue.h"

namespace brantlow {

inline constexpr const char* kSourceChoicesName = "VTRSRCset.ini";
// The capabilities in their order, and the fallback.
inline constexpr std::size_t kSourceLines = kCapabilityCount + 1;

struct SourceChoices {
    std::array<std::string, kSourceLines> names;

    const std::string& For(Capability capability) const {
        return names[static_cast<std::size_t>(capability)];
    }
    const std::string& Fallback() const { return names[kCapabilityCount]; }
};

// None are chosen where the file is missing. A file that is there and cannot be read sets `error`.
SourceChoices LoadSourceChoices(const Path& dataFolder, std::error_code& error);
std::error_code WriteSourceChoices(const Path& dataFolder, const SourceChoices& choices);

// Null where the standard source is chosen. A name that no definition has, or one whose source cannot do it,
// is refused with a sentence.
struct ChosenSource {
    const SourceDefinition* source = nullptr;
    std::string refusal;
};
ChosenSource SourceOf(const SourceChoices& choices, const SourceCatalogue& catalogue, Capability capability);
ChosenSource FallbackSourceOf(const SourceChoices& choices, const SourceCatalogue& catalogue);

// The source of that name for a capability, as a call names it.
ChosenSource SourceNamed(const SourceCatalogue& catalogue, const std::string& name, Capability capability);

}  // namespace brantlow
