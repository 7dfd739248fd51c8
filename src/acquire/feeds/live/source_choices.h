// The choices of live sources as a person changes them: all names of VTRSRCset.ini at a time. Who only asks
// which source serves looks at chosen_sources.h.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "acquire/feeds/live/source_definition.h"
#include "base/file_change.h"
#include "shell/session.h"

namespace brantlow {

// The capabilities in their order, and the source for unknown tickers.
inline constexpr std::size_t kSourceLines = kCapabilityCount + 1;

struct SourceChoices {
    std::array<std::string, kSourceLines> names;

    std::string& For(Capability capability) { return names[static_cast<std::size_t>(capability)]; }
    const std::string& For(Capability capability) const {
        return names[static_cast<std::size_t>(capability)];
    }
    std::string& Fallback() { return names[kCapabilityCount]; }
    const std::string& Fallback() const { return names[kCapabilityCount]; }
};

SourceChoices ChoicesOf(const SettingsTables& settings);

// With `source` for quotes, history and splits; where it tells no splits of their own, those come as its
// quotes do. Null is the standard source.
SourceChoices ChosenForPrices(SourceChoices choices, const SourceDefinition* source);

// Writes the choices and puts them into force; choices that are in force already write nothing. A sentence
// where that failed, or where the file that is there cannot be read; else empty.
std::string KeepChoices(Session& session, const SourceChoices& choices);

}  // namespace brantlow
