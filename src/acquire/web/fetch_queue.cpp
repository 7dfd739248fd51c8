#include "acquire/web/fetch_queue.h"

#include <utility>

namespace brantlow {

FetchQueue::FetchQueue(Web& web, NextRequest next, std::size_t ahead)
    : web_(web), next_(std::move(next)), ahead_(ahead == 0 ? 1 : ahead) {}

FetchQueue::~FetchQueue() {
    for (const UnderWay& one : underWay_) web_.Abandon(one.ticket);
}

void FetchQueue::SendAhead() {
    while (!atEnd_ && underWay_.size() < ahead_) {
        std::optional<WebRequest> request = next_();
        if (!request) {
            atEnd_ = true;
            return;
        }
        const WebTicket ticket = web_.Start(*request);
        underWay_.push_back({std::move(*request), ticket});
    }
}

std::optional<FetchQueue::Fetched> FetchQueue::Next() {
    SendAhead();
    if (underWay_.empty()) return std::nullopt;
    UnderWay oldest = std::move(underWay_.front());
    underWay_.pop_front();
    WebReply reply = web_.Finish(oldest.ticket);
    // The reply's place is free: the next request leaves before its work begins.
    SendAhead();
    return Fetched{std::move(oldest.request), std::move(reply)};
}

}  // namespace brantlow
