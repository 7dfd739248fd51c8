// The world in which live sources are asked, put together out of a session and the program's web: hosts,
// limits and keys of the application folder, real time. Whoever asks a source holds one for as long.
#pragma once

#include "acquire/feeds/live/source_client.h"

namespace brantlow {

class LiveWorld {
  public:
    LiveWorld(Session& session, Web& web)
        : services_(web),
          hosts_(LoadSourceHosts(session.DataFolder())),
          state_(session.DataFolder(), SystemSourceTime()),
          world_{session, services_, hosts_, state_} {}
    LiveWorld(const LiveWorld&) = delete;
    LiveWorld& operator=(const LiveWorld&) = delete;

    SourceWorld& World() { return world_; }
    SourceState& State() { return state_; }

  private:
    WebServices services_;
    SourceHosts hosts_;
    SourceState state_;
    SourceWorld world_;
};

}  // namespace brantlow
