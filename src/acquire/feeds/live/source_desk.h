// The live sources as a window shows them and lets them be chosen: definitions, choices, and the world in
// which they are asked.
#pragma once

#include <memory>
#include <string>

#include "acquire/feeds/live/live_world.h"
#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/live/source_choices.h"
#include "acquire/web/web.h"

namespace brantlow {

class SourceDesk {
  public:
    // Both outlive it.
    SourceDesk(Session& session, Web& web);
    SourceDesk(const SourceDesk&) = delete;
    SourceDesk& operator=(const SourceDesk&) = delete;

    // Reads the definitions again, after one of their files was changed.
    void Reload() { catalogue_ = LoadSources(session_.DataFolder()); }

    const SourceCatalogue& Catalogue() const { return catalogue_; }
    SourceWorld& World() { return live_.World(); }
    SourceChoices Choices() const { return ChoicesOf(session_.settings); }
    // Why VTRSRCset.ini cannot be changed: it is there and cannot be read. Empty where it can.
    std::string Refusal() const;

    // Keeps `source`, null for the standard source, as the one for quotes, history and splits; a sentence
    // where that failed, else empty.
    std::string ChooseForPrices(const SourceDefinition* source);

  private:
    Session& session_;
    SourceCatalogue catalogue_;
    LiveWorld live_;
};

}  // namespace brantlow
