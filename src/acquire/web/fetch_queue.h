// Requests sent ahead while earlier replies are worked on. Replies come out in the order in which they were
// asked for, so that a run over a table behaves as if it fetched one after another.
#pragma once

#include <deque>
#include <functional>
#include <optional>

#include "acquire/web/web.h"

namespace brantlow {

class FetchQueue {
  public:
    // The next request of the run, or nothing when there is none left. Asked as early as `ahead` replies
    // before its own is taken.
    using NextRequest = std::function<std::optional<WebRequest>()>;

    struct Fetched {
        WebRequest request;
        WebReply reply;
    };

    FetchQueue(Web& web, NextRequest next, std::size_t ahead = kRequestsPerHost);
    // Abandons what nobody took.
    ~FetchQueue();
    FetchQueue(const FetchQueue&) = delete;
    FetchQueue& operator=(const FetchQueue&) = delete;

    // Waits for the reply of the oldest request; nothing when all replies are taken.
    std::optional<Fetched> Next();

  private:
    struct UnderWay {
        WebRequest request;
        WebTicket ticket;
    };

    void SendAhead();

    Web& web_;
    NextRequest next_;
    std::size_t ahead_;
    bool atEnd_ = false;
    std::deque<UnderWay> underWay_;
};

}  // namespace brantlow
