#include "daily/live_setup.h"

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
    sources_.fallback = fallback.source;
}

const SourceDefinition* LiveSetup::Choose(const Session& session, Capability capability) {
    const ChosenSource chosen = SourceOf(session.settings, catalogue_, capability);
    Keep(chosen.refusal);
    return chosen.source;
}

}  // namespace brantlow
