#include "acquire/web/curl_web.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "acquire/web/curl_transfers.h"

namespace brantlow {

namespace {

// The longest time between two looks at the window's events, in seconds.
constexpr double kPumpInterval = 0.02;

double RealSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool StopAsked(const WebRequest& request) {
    return request.run != nullptr && request.run->ProcessCommand == kStopRun;
}

// Marks a wait in progress for as long as it lives.
class WaitMark {
  public:
    explicit WaitMark(bool& busy) : busy_(busy) { busy_ = true; }
    ~WaitMark() { busy_ = false; }
    WaitMark(const WaitMark&) = delete;
    WaitMark& operator=(const WaitMark&) = delete;

  private:
    bool& busy_;
};

}  // namespace

CurlWeb::CurlWeb(Person& person, WebTime time)
    : person_(person), time_(std::move(time)), transfers_(std::make_unique<CurlTransfers>()) {}

CurlWeb::~CurlWeb() = default;

WebTicket CurlWeb::Start(const WebRequest& request) {
    WebRequest sent = request;
    sent.url = RequestAddress(request.url);
    if (!online_)
        return transfers_->AddDone(sent, FailedReply(WebFailure::Offline, "The web layer is offline."));
    if (!IsWebAddress(sent.url))
        return transfers_->AddDone(sent, FailedReply(WebFailure::BadAddress, "No web address: " + sent.url));
    const WebTicket ticket = transfers_->Add(sent);
    transfers_->Round(time_.now());
    return ticket;
}

WebReply CurlWeb::Finish(WebTicket ticket) {
    if (busy_) {
        transfers_->Drop(ticket);
        return FailedReply(WebFailure::Busy, "Another request is being waited for.");
    }
    const WaitMark mark(busy_);
    return WaitFor(ticket);
}

WebReply CurlWeb::WaitFor(WebTicket ticket) {
    const double begin = time_.now();
    for (;;) {
        const double now = time_.now();
        transfers_->Round(now);
        // Looked up in every round: an event handler may have abandoned the request.
        const WebRequest* request = transfers_->RequestOf(ticket);
        if (request == nullptr || transfers_->IsDone(ticket)) return transfers_->TakeOut(ticket);
        if (StopAsked(*request)) {
            transfers_->Drop(ticket);
            return FailedReply(WebFailure::Stopped, "The run was stopped.");
        }
        if (request->limitSeconds && now - begin >= *request->limitSeconds) {
            WebReply reply = transfers_->TakeOut(ticket);
            reply.failure = WebFailure::TimedOut;
            reply.error = "The time limit was reached.";
            return reply;
        }
        const bool traffic = transfers_->WaitForTraffic(kPumpInterval);
        if (!traffic) time_.sleep(kPumpInterval);
        if (!traffic || RealSeconds() - lastPump_ >= kPumpInterval) LetEventsRun();
    }
}

void CurlWeb::LetEventsRun() {
    person_.PumpEvents();
    lastPump_ = RealSeconds();
}

void CurlWeb::Abandon(WebTicket ticket) {
    transfers_->Drop(ticket);
}

void CurlWeb::SetConnectedState(std::uint32_t state, std::uint32_t) {
    if (state == kStateConnected) online_ = true;
    if (state == kStateDisconnectedByUser) online_ = false;
}

}  // namespace brantlow
