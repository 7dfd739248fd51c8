// The web without a network: replies are put in beforehand, requests are recorded. Tests of everything that
// downloads run against it.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "acquire/web/web.h"
#include "shell/person.h"

namespace brantlow {

class MemoryWeb final : public Web {
  public:
    using Answerer = std::function<WebReply(const WebRequest&)>;

    // `person`, when given, is pumped while a page that never completes is waited for.
    explicit MemoryWeb(Person* person = nullptr) : person_(person) {}

    // A whole reply with status 200.
    static WebReply Page(std::string bytes, std::string contentType = "text/plain") {
        WebReply reply;
        reply.ok = true;
        reply.status = kStatusOk;
        reply.contentType = std::move(contentType);
        reply.bytes = std::move(bytes);
        return reply;
    }

    // The reply for `url`, each time it is asked for.
    void Answer(const std::string& url, WebReply reply) { replies_[url] = std::move(reply); }
    // Answers what has no reply of its own.
    void AnswerWith(Answerer answerer) { answerer_ = std::move(answerer); }
    // `url` sends `soFar` and never ends.
    void NeverComplete(const std::string& url, std::string soFar) { endless_[url] = std::move(soFar); }

    WebTicket Start(const WebRequest& request) override {
        const WebTicket ticket = ++lastTicket_;
        WebRequest sent = request;
        sent.url = RequestAddress(request.url);
        Addresses.push_back(sent.url);
        started_.emplace(ticket, std::move(sent));
        MostStarted = std::max(MostStarted, started_.size());
        return ticket;
    }

    WebReply Finish(WebTicket ticket) override {
        const auto found = started_.find(ticket);
        if (found == started_.end()) return FailedReply(WebFailure::Stopped, "The request was abandoned.");
        const WebRequest request = std::move(found->second);
        started_.erase(found);
        if (!Online) return FailedReply(WebFailure::Offline, "The web layer is offline.");
        if (const auto endless = endless_.find(request.url); endless != endless_.end())
            return WaitForEver(request, endless->second);
        if (const auto reply = replies_.find(request.url); reply != replies_.end()) return reply->second;
        if (answerer_) return answerer_(request);
        return FailedReply(WebFailure::NoConnection, "No reply for " + request.url);
    }

    void Abandon(WebTicket ticket) override { Abandoned += started_.erase(ticket); }

    void SetConnectedState(std::uint32_t state, std::uint32_t flags) override {
        ConnectedStates.emplace_back(state, flags);
        if (state == kStateConnected) Online = true;
        if (state == kStateDisconnectedByUser) Online = false;
    }

    // What happened, in order.
    std::vector<std::string> Addresses;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ConnectedStates;
    std::size_t MostStarted = 0;
    std::size_t Abandoned = 0;
    bool Online = true;

  private:
    static constexpr int kStatusOk = 200;

    // With a time limit the limit is reached at once; without one the person is pumped until the run is
    // stopped.
    WebReply WaitForEver(const WebRequest& request, const std::string& soFar) {
        if (request.limitSeconds) {
            WebReply reply = FailedReply(WebFailure::TimedOut, "The time limit was reached.");
            reply.status = kStatusOk;
            reply.contentType = "text/html";
            reply.bytes = soFar;
            return reply;
        }
        while (person_ != nullptr && request.run != nullptr && request.run->ProcessCommand != kStopRun)
            person_->PumpEvents();
        return FailedReply(WebFailure::Stopped, "The run was stopped.");
    }

    Person* person_;
    WebTicket lastTicket_ = 0;
    std::map<WebTicket, WebRequest> started_;
    std::map<std::string, WebReply> replies_;
    std::map<std::string, std::string> endless_;
    Answerer answerer_;
};

}  // namespace brantlow
