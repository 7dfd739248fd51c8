// The web as the live sources see it: services that are asked with headers of their own and whose refusals
// are read. An answer of any status is one; it is not asked for again, and an address that it names instead
// is not followed, so that a key never reaches another host. WebServices asks through the web that it is
// handed, tests hand in replies from memory.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "acquire/web/web.h"

namespace brantlow {

struct ServiceRequest {
    std::string url;
    // Lines "Name: value".
    std::vector<std::string> headers;
    double limitSeconds = 30;
    std::size_t limitBytes = kMostReplyBytes;
    // The wait ends when this run's control word becomes "True"; may be null.
    const RunControl* run = nullptr;
};

struct ServiceReply {
    int status = 0;                // 0 when no answer came
    std::string bytes;             // decompressed
    double retryAfterSeconds = 0;  // what the service asks for, at most a day; 0 where it names none
    WebFailure failure = WebFailure::None;
    std::string error;  // empty for an answer
};

class ServiceWeb {
  public:
    virtual ~ServiceWeb() = default;
    virtual ServiceReply Ask(const ServiceRequest& request) = 0;
};

// One request at a time over the program's web. A proxy of the environment is honoured.
class WebServices final : public ServiceWeb {
  public:
    explicit WebServices(Web& web) : web_(web) {}

    ServiceReply Ask(const ServiceRequest& request) override;

  private:
    Web& web_;
};

}  // namespace brantlow
