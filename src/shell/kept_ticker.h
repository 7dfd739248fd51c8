// The ticker that is selected while a run goes through others. The run writes the one in work to
// Session::CurrentTicker, for whoever tells how far it is; the selected one stands there again afterwards.
#pragma once

#include <string>

#include "shell/session.h"

namespace brantlow {

class KeptTicker {
  public:
    explicit KeptTicker(Session& session) : session_(session), ticker_(session.CurrentTicker) {}
    ~KeptTicker() { session_.CurrentTicker = ticker_; }
    KeptTicker(const KeptTicker&) = delete;
    KeptTicker& operator=(const KeptTicker&) = delete;

  private:
    Session& session_;
    std::string ticker_;
};

}  // namespace brantlow
