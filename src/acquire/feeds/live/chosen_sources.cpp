#include "acquire/feeds/live/chosen_sources.h"

#include <fmt/format.h>

#include <array>

#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

// By capability.
constexpr std::array<TextLine, kCapabilityCount> kChoiceLines = {kLiveQuotes, kLiveHistory, kLiveSplits,
                                                                 kLiveFundamentals, kLiveSymbols};

ChosenSource NamedByTheFile(const SourceCatalogue& catalogue, const std::string& name,
                            Capability capability) {
    ChosenSource chosen = SourceNamed(catalogue, name, capability);
    if (!chosen.refusal.empty()) {
        chosen.refusal.insert(0, std::string(FormOf(SettingsFile::Src).fileName) + ": ");
    }
    return chosen;
}

}  // namespace

const std::string& ChosenName(const SettingsTables& settings, Capability capability) {
    return Get(settings, kChoiceLines.at(static_cast<std::size_t>(capability)));
}

ChosenSource SourceNamed(const SourceCatalogue& catalogue, const std::string& name, Capability capability) {
    const SourceDefinition* source = catalogue.Find(name);
    if (source == nullptr) return {nullptr, "'" + name + "' is no source that is known here"};
    if (source->Form(capability) != nullptr) return {source, {}};
    return {nullptr, fmt::format("{} gives no {}", source->title,
                                 kCapabilityNames[static_cast<std::size_t>(capability)])};
}

ChosenSource SourceOf(const SettingsTables& settings, const SourceCatalogue& catalogue,
                      Capability capability) {
    const std::string& name = ChosenName(settings, capability);
    return name.empty() ? ChosenSource{} : NamedByTheFile(catalogue, name, capability);
}

ChosenSource FallbackSourceOf(const SettingsTables& settings, const SourceCatalogue& catalogue) {
    const std::string& name = Get(settings, kLiveFallback);
    return name.empty() ? ChosenSource{} : NamedByTheFile(catalogue, name, Capability::History);
}

}  // namespace brantlow
