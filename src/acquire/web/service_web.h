// The web as the live sources see it: services that are asked with headers of their own and whose refusals
// are read. An answer of any status is one; it is not asked for again, and an address that it names instead
// is not followed, so that a key never reaches another host. CurlServiceWeb talks to the network, tests hand
// in replies from memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "acquire/web/web.h"
#include "shell/person.h"

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

// One request at a time over libcurl; connections stay open between requests, window events run during the
// wait. A proxy of the environment is honoured.
class CurlServiceWeb final : public ServiceWeb {
  public:
    explicit CurlServiceWeb(Person& person);
    ~CurlServiceWeb() override;

    ServiceReply Ask(const ServiceRequest& request) override;

  private:
    struct Handles;
    Person& person_;
    std::unique_ptr<Handles> handles_;
};

}  // namespace brantlow
