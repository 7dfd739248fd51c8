#include "acquire/web/service_web.h"

#include <fmt/format.h>

namespace brantlow {

ServiceReply WebServices::Ask(const ServiceRequest& request) {
    WebRequest asked{.url = request.url};
    asked.limitSeconds = request.limitSeconds;
    asked.limitBytes = request.limitBytes;
    asked.run = request.run;
    asked.isRepeated = false;
    asked.takesAnyStatus = true;
    asked.headers = request.headers;
    WebReply came = web_.Fetch(asked);
    ServiceReply reply;
    reply.failure = came.failure;
    reply.error = std::move(came.error);
    if (came.failure == WebFailure::TimedOut) {
        reply.error = fmt::format("no whole answer within {} seconds", request.limitSeconds);
    }
    if (came.failure != WebFailure::None) return reply;
    reply.status = came.status;
    reply.bytes = std::move(came.bytes);
    reply.retryAfterSeconds = came.retryAfterSeconds;
    return reply;
}

}  // namespace brantlow
