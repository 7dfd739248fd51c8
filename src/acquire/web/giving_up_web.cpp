#include "acquire/web/giving_up_web.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "acquire/web/busy_statuses.h"

namespace brantlow {

namespace {

constexpr std::array<WebFailure, 8> kMissedReplies = {
    WebFailure::NoHost,   WebFailure::NoConnection, WebFailure::Certificate, WebFailure::Redirected,
    WebFailure::TooLarge, WebFailure::TimedOut,     WebFailure::Silent,      WebFailure::GivenUp};

WebReply GivenUpReply(const std::string& host) {
    return FailedReply(WebFailure::GivenUp, fmt::format("{} was given up after {} requests without a reply",
                                                        host, kRepliesMissed));
}

}  // namespace

bool IsMissedReply(const WebReply& reply) {
    if (reply.ok) return false;
    // A connection that ends before the first line of an answer, and a host that is too busy time after time.
    if (reply.failure == WebFailure::Broken) return reply.status == 0;
    if (reply.failure == WebFailure::Status) {
        return reply.status == kTooManyRequests || reply.status == kServiceUnavailable;
    }
    return std::find(kMissedReplies.begin(), kMissedReplies.end(), reply.failure) != kMissedReplies.end();
}

GivingUpWeb::~GivingUpWeb() {
    for (const auto& [ticket, request] : underWay_) web_.Abandon(request.inner);
}

bool GivingUpWeb::IsGivenUp(std::string_view url) const {
    const auto found = missed_.find(HostOf(url));
    return found != missed_.end() && found->second >= kRepliesMissed;
}

WebTicket GivingUpWeb::Start(const WebRequest& request) {
    const WebTicket inner = IsGivenUp(request.url) ? 0 : web_.Start(request);
    underWay_.emplace(++lastTicket_, UnderWay{inner, HostOf(request.url)});
    return lastTicket_;
}

WebReply GivingUpWeb::Finish(WebTicket ticket) {
    const auto found = underWay_.find(ticket);
    if (found == underWay_.end()) return FailedReply(WebFailure::Stopped, "The request was abandoned.");
    const UnderWay request = std::move(found->second);
    underWay_.erase(found);
    std::size_t& missed = missed_[request.host];
    if (request.inner == 0 || missed >= kRepliesMissed) {
        web_.Abandon(request.inner);
        return GivenUpReply(request.host);
    }
    WebReply reply = web_.Finish(request.inner);
    const bool isTold =
        reply.ok || reply.failure == WebFailure::Status || reply.failure == WebFailure::Broken;
    if (IsMissedReply(reply)) {
        ++missed;
    } else if (isTold) {
        missed = 0;
    }
    return reply;
}

void GivingUpWeb::Abandon(WebTicket ticket) {
    const auto found = underWay_.find(ticket);
    if (found == underWay_.end()) return;
    web_.Abandon(found->second.inner);
    underWay_.erase(found);
}

void GivingUpWeb::SetConnectedState(std::uint32_t state, std::uint32_t flags) {
    web_.SetConnectedState(state, flags);
}

}  // namespace brantlow
