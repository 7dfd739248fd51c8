// The live sources that the settings choose for an update, with the world in which they are asked; whoever
// runs an update without naming a source holds one for its time.
#pragma once

#include <string>

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_world.h"
#include "daily/live_update.h"

namespace brantlow {

class LiveSetup {
  public:
    LiveSetup(Session& session, Web& web);

    // Null where no live source is chosen for an update.
    LiveSources* Sources() {
        return sources_.quotes == nullptr && sources_.fundamentals == nullptr ? nullptr : &sources_;
    }
    // Why a choice does not hold, or whose terms were not agreed to, for a person; empty where all do.
    // Nothing may be updated then.
    const std::string& Refusal() const { return refusal_; }

  private:
    const SourceDefinition* Agreed(const SourceDefinition* source);
    const SourceDefinition* Choose(const Session& session, Capability capability);
    void Keep(const std::string& refusal) {
        if (refusal_.empty()) refusal_ = refusal;
    }

    SourceCatalogue catalogue_;
    LiveWorld live_;
    LiveSources sources_;
    std::string refusal_;
};

}  // namespace brantlow
