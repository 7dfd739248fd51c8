#include "daily/live_setup.h"

namespace brantlow {

LiveSetup::LiveSetup(Session& session)
    : catalogue_(LoadSources(session.DataFolder())),
      web_(session.person),
      hosts_(LoadSourceHosts(session.DataFolder())),
      state_(session.DataFolder(), SystemSourceTime()),
      world_{session, web_, hosts_, state_},
      sources_{world_} {
    std::error_code error;
    const SourceChoices choices = LoadSourceChoices(session.DataFolder(), error);
    const ChosenSource quotes = SourceOf(choices, catalogue_, Capability::Quotes);
    const ChosenSource splits = SourceOf(choices, catalogue_, Capability::Splits);
    const std::string refusal = error ? error.message() : quotes.refusal + splits.refusal;
    if (!refusal.empty()) session.person.Say(std::string(kSourceChoicesName) + ": " + refusal);
    sources_.quotes = quotes.source;
    sources_.splits = splits.source;
    if (splits.source == nullptr && quotes.source != nullptr &&
        quotes.source->Form(Capability::Splits) != nullptr) {
        sources_.splits = quotes.source;
    }
    sources_.fallback = FallbackSourceOf(choices, catalogue_).source;
}

}  // namespace brantlow
