// The live sources that the settings choose for an update, with the world in which they are asked; for the
// window, which holds one for the time of an update.
#pragma once

#include "acquire/feeds/live/chosen_sources.h"
#include "daily/live_update.h"

namespace brantlow {

class LiveSetup {
  public:
    // A choice that does not hold is told to the session's person.
    explicit LiveSetup(Session& session);

    // Null where the standard source serves.
    LiveSources* Sources() { return sources_.quotes == nullptr ? nullptr : &sources_; }

  private:
    SourceCatalogue catalogue_;
    CurlServiceWeb web_;
    SourceHosts hosts_;
    SourceState state_;
    SourceWorld world_;
    LiveSources sources_;
};

}  // namespace brantlow
