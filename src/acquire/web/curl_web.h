// The web over the network: libcurl on the caller's thread.
//
// A wait hands over to the person's events about every 20 milliseconds. Connections are kept open between
// requests; at most four requests are on their way to one host, the others queue in the order of their start.
// A host that answers 429 or 503 is left alone for as long as it asks (60 seconds at most), else for 1, 2, 4
// and 8 seconds, and is then asked again; after the fourth repeat the status stands.
//
// An event handler that runs inside a wait may start or abandon requests but not wait itself: its Finish
// gives Busy at once.
#pragma once

#include <memory>

#include "acquire/web/web.h"
#include "acquire/web/web_time.h"
#include "shell/person.h"

namespace brantlow {

class CurlTransfers;

class CurlWeb final : public Web {
  public:
    explicit CurlWeb(Person& person, WebTime time = SystemWebTime());
    ~CurlWeb() override;

    WebTicket Start(const WebRequest& request) override;
    WebReply Finish(WebTicket ticket) override;
    void Abandon(WebTicket ticket) override;
    void SetConnectedState(std::uint32_t state, std::uint32_t flags) override;

  private:
    WebReply WaitFor(WebTicket ticket);
    void LetEventsRun();

    Person& person_;
    WebTime time_;
    std::unique_ptr<CurlTransfers> transfers_;
    bool busy_ = false;
    bool online_ = true;
    double lastPump_ = 0;
};

}  // namespace brantlow
