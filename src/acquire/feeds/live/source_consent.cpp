#include "acquire/feeds/live/source_consent.h"

namespace brantlow {

std::string ConsentQuestion(const SourceDefinition& source) {
    return source.terms + "\r\n\r\nDo you agree, and want " + source.title + " to be asked for prices?";
}

std::string ConsentRefusal(const SourceDefinition& source) {
    return source.title +
           " was not asked: its terms have not been agreed to. Settings, Quote Sources tells them";
}

bool MayBeAsked(SourceWorld& world, const SourceDefinition& source) {
    if (!source.asksConsent || world.state.HasToldTerms(source.name)) return true;
    if (!world.session.person.Ask(ConsentQuestion(source), source.title)) return false;
    world.state.TellsTermsFirst(source.name);
    return true;
}

}  // namespace brantlow
