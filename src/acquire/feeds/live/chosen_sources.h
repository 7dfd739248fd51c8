// The live sources that a person has chosen, one for each capability and one for what the first does not
// know: the lines of VTRSRCset.ini. An empty line is the standard source.
#pragma once

#include <string>

#include "acquire/feeds/live/source_catalogue.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// The line of a capability.
const std::string& ChosenName(const SettingsTables& settings, Capability capability);

// Null where the standard source is chosen. A name that no definition has, or one whose source cannot do it,
// is refused with a sentence.
struct ChosenSource {
    const SourceDefinition* source = nullptr;
    std::string refusal;
};
ChosenSource SourceOf(const SettingsTables& settings, const SourceCatalogue& catalogue,
                      Capability capability);
ChosenSource FallbackSourceOf(const SettingsTables& settings, const SourceCatalogue& catalogue);

// The source of that name for a capability, as a call names it.
ChosenSource SourceNamed(const SourceCatalogue& catalogue, const std::string& name, Capability capability);

}  // namespace brantlow
