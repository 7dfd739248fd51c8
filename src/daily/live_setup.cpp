#include "daily/live_setup.h"

#include "acquire/feeds/live/source_consent.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

LiveSetup::LiveSetup(Session& session, Web& web)
    : catalogue_(LoadSources(session.DataFolder())), live_(session, web), sources_{live_.World()} {
    Keep(UnreadableSettings(SettingsFile::Src, session.AppPath, session.settings));
    sources_.quotes = Choose(session, Capability::Quotes);
    sources_.splits = Choose(session, Capability::Splits);
    sources_.fundamentals = Choose(session, Capability::Fundamentals);
    const bool tellsSplits =
        sources_.quotes != nullptr && sources_.quotes->Form(Capability::Splits) != nullptr;
    if (sources_.splits == nullptr && tellsSplits) sources_.splits = sources_.quotes;
    const ChosenSource fallback = FallbackSourceOf(session.settings, catalogue_);
    Keep(fallback.refusal);
    // Nobody asks it behind the standard source.
    sources_.fallback = sources_.quotes == nullptr ? fallback.source : Agreed(fallback.source);
}

// Terms that nobody has agreed to yet are put to the session's person.
const SourceDefinition* LiveSetup::Agreed(const SourceDefinition* source) {
    if (source == nullptr || MayBeAsked(live_.World(), *source)) return source;
    Keep(ConsentRefusal(*source));
    return nullptr;
}

const SourceDefinition* LiveSetup::Choose(const Session& session, Capability capability) {
    const ChosenSource chosen = SourceOf(session.settings, catalogue_, capability);
    Keep(chosen.refusal);
    return Agreed(chosen.source);
}

}  // namespace brantlow
