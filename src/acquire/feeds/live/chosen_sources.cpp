#include "acquire/feeds/live/chosen_sources.h"

#include <fmt/format.h>

#include "base/text.h"
#include "base/values.h"

namespace brantlow {

SourceChoices LoadSourceChoices(const Path& dataFolder, std::error_code& error) {
    SourceChoices choices;
    const ReadResult read = ReadWholeFile(dataFolder / kSourceChoicesName);
    if (read.outcome == ReadOutcome::Failed) error = read.error;
    LineReader lines(read.bytes);
    std::string_view line;
    for (std::string& name : choices.names) {
        if (lines.Next(line)) name = Value::Parse(line).Text();
    }
    return choices;
}

std::error_code WriteSourceChoices(const Path& dataFolder, const SourceChoices& choices) {
    std::string bytes;
    for (const std::string& name : choices.names)
        bytes.append(Value::OfText(name).Written()).append(kLineEnd);
    return WriteWholeFile(dataFolder / kSourceChoicesName, bytes);
}

ChosenSource SourceNamed(const SourceCatalogue& catalogue, const std::string& name, Capability capability) {
    const SourceDefinition* source = catalogue.Find(name);
    if (source == nullptr) return {nullptr, "'" + name + "' is no source that is known here"};
    if (source->Form(capability) != nullptr) return {source, {}};
    return {nullptr, fmt::format("{} gives no {}", source->title,
                                 kCapabilityNames[static_cast<std::size_t>(capability)])};
}

ChosenSource SourceOf(const SourceChoices& choices, const SourceCatalogue& catalogue, Capability capability) {
    const std::string& name = choices.For(capability);
    return name.empty() ? ChosenSource{} : SourceNamed(catalogue, name, capability);
}

ChosenSource FallbackSourceOf(const SourceChoices& choices, const SourceCatalogue& catalogue) {
    return choices.Fallback().empty() ? ChosenSource{}
                                      : SourceNamed(catalogue, choices.Fallback(), Capability::History);
}

}  // namespace brantlow
