#include "acquire/feeds/live/source_choices.h"

#include "shell/settings/lines.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr std::array<TextLine, kSourceLines> kLines = {kLiveQuotes,       kLiveHistory, kLiveSplits,
                                                       kLiveFundamentals, kLiveSymbols, kLiveFallback};

}  // namespace

SourceChoices ChoicesOf(const SettingsTables& settings) {
    SourceChoices choices;
    for (std::size_t i = 0; i < kSourceLines; ++i) choices.names[i] = Get(settings, kLines[i]);
    return choices;
}

SourceChoices ChosenForPrices(SourceChoices choices, const SourceDefinition* source) {
    for (const Capability capability : {Capability::Quotes, Capability::History, Capability::Splits}) {
        const bool gives = source != nullptr && source->Form(capability) != nullptr;
        choices.For(capability) = gives ? source->name : std::string();
    }
    return choices;
}

std::string KeepChoices(Session& session, const SourceChoices& choices) {
    const std::string refusal = UnreadableSettings(SettingsFile::Src, session.AppPath, session.settings);
    if (!refusal.empty() || choices.names == ChoicesOf(session.settings).names) return refusal;
    SettingsTables draft = session.settings;
    for (std::size_t i = 0; i < kSourceLines; ++i) Set(draft, kLines[i], choices.names[i]);
    const Failure fault =
        ApplySettings(draft, SettingsFile::Src, OrdinaryChange(session.AppPath), session.settings);
    return Sentence(fault);
}

}  // namespace brantlow
