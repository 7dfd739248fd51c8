// The practice market on the wire: a web server that listens on the loopback only.
#pragma once

#include <memory>
#include <string>

#include "base/clock.h"
#include "market/alert_list.h"
#include "market/market_data.h"

namespace brantlow {

class MarketServer {
  public:
    // All three outlive the server. `bytesPerSecond` is the speed of every reply, 0 as fast as it goes.
    MarketServer(const MarketData& data, const Clock& clock, AlertList& alerts, unsigned bytesPerSecond = 0);
    ~MarketServer();
    MarketServer(const MarketServer&) = delete;
    MarketServer& operator=(const MarketServer&) = delete;

    // Takes hold of the port, 0 of any free one; false when it is in use. Call once that succeeds, then Run.
    bool Bind(int port);
    // "http://127.0.0.1:8080", once bound.
    std::string Address() const;
    // Serves on other threads, until Stop.
    void Run();
    // Ends the replies on their way and waits until the threads are gone. May be called at any time.
    void Stop();

  private:
    struct Wire;
    std::unique_ptr<Wire> wire_;
};

}  // namespace brantlow
