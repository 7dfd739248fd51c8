#include "acquire/feeds/live/source_desk.h"

#include "shell/settings/settings_files.h"

namespace brantlow {

SourceDesk::SourceDesk(Session& session, Web& web)
    : session_(session), catalogue_(LoadSources(session.DataFolder())), live_(session, web) {}

std::string SourceDesk::Refusal() const {
    return UnreadableSettings(SettingsFile::Src, session_.AppPath, session_.settings);
}

std::string SourceDesk::ChooseForPrices(const SourceDefinition* source) {
    return KeepChoices(session_, ChosenForPrices(Choices(), source));
}

}  // namespace brantlow
