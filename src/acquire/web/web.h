// The web as the engine sees it: addresses go out, replies come back. CurlWeb talks to the network, MemoryWeb
// is its twin for tests; everything else in the program reaches the web through this interface only.
//
// A request is started and later finished, so that several can be on their way while earlier replies are
// worked on. Waiting happens in Finish only; it lets window events run and can be told to stop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/run_control.h"

namespace brantlow {

// No reply is longer than this, whatever the other side sends.
inline constexpr std::size_t kMostReplyBytes = std::size_t{64} * 1024 * 1024;

// A host that sends fewer bytes than these in a request's silent seconds counts as silent.
inline constexpr std::size_t kFewestBytes = 2000;

// Requests on their way to one host at a time.
inline constexpr std::size_t kRequestsPerHost = 4;

struct WebRequest {
    std::string url;
    // The longest wait in Finish, in seconds. Without it the wait lasts until the reply is whole, the
    // connection fails or the run is stopped.
    std::optional<double> limitSeconds = {};
    // The request ends when fewer than kFewestBytes come within so many seconds.
    std::optional<double> silentSeconds = {};
    std::size_t limitBytes = kMostReplyBytes;
    // The wait ends when this run's control word becomes "True". Null for requests outside any run.
    const RunControl* run = nullptr;
    // Whether a host that answers 429 or 503 is asked again.
    bool isRepeated = true;
    // Whether the answer counts whatever its status is, and an address that it names instead is not followed.
    bool takesAnyStatus = false;
    // Lines "Name: value" behind those of every request; one of the same name takes its place.
    std::vector<std::string> headers = {};
};

enum class WebFailure {
    None,
    BadAddress,    // no http or https address
    Offline,       // the web layer is told to stay offline
    NoHost,        // the host's name is not known
    NoConnection,  // refused, or nobody there
    Certificate,   // the host shows no valid certificate
    Redirected,    // sent on and on, or to where no web is
    Broken,        // cut, reset or shorter than announced
    Status,        // a status other than 200
    TooLarge,      // longer than the request's limit
    TimedOut,      // the request's time is over; `bytes` holds what had come by then
    Silent,        // too few bytes for too long
    GivenUp,       // not asked for: the host gave no reply too often (giving_up_web.h)
    Stopped,       // the run was stopped, or the request abandoned
    Busy,          // asked for from within another wait
};

struct WebReply {
    bool ok = false;
    int status = 0;  // 0 when no answer came
    std::string contentType;
    std::string bytes;  // decompressed; empty after a failure other than TimedOut
    // What the host asks for, at most a day; 0 where it names none.
    double retryAfterSeconds = 0;
    WebFailure failure = WebFailure::None;
    std::string error;  // what went wrong, for a log or a person; empty when ok
};

// A started request; 0 is none.
using WebTicket = std::uint64_t;

// The states of the platform's web layer.
inline constexpr std::uint32_t kStateConnected = 1;
inline constexpr std::uint32_t kStateDisconnectedByUser = 16;

class Web {
  public:
    virtual ~Web() = default;

    // Sends the request off as soon as its host has room. Never waits.
    virtual WebTicket Start(const WebRequest& request) = 0;
    // Waits for the reply and forgets the request. An unknown ticket gives Stopped.
    virtual WebReply Finish(WebTicket ticket) = 0;
    // Forgets a request whose reply nobody wants any more. An unknown ticket is passed over.
    virtual void Abandon(WebTicket ticket) = 0;
    // Puts the web layer online (kStateConnected) or offline (kStateDisconnectedByUser); any other state is
    // passed over. `flags` 1 forces it; every change here is forced.
    virtual void SetConnectedState(std::uint32_t state, std::uint32_t flags) = 0;

    WebReply Fetch(const WebRequest& request) { return Finish(Start(request)); }
};

// A failed reply with its sentence.
WebReply FailedReply(WebFailure failure, std::string_view error);

// Why a reply to a request for `url` is of no use, as a sentence without full stop that names the host: "No
// reply from http://host : could not connect". The same failure gives the same sentence each time.
std::string FailureSentence(std::string_view url, const WebReply& reply);
// The same of a reply that came but does not hold what was asked for: "No data from http://host : ...".
std::string NoDataSentence(std::string_view url, std::string_view reason);

// `url` as it may enter a request: CR, LF and other control bytes are cut out, blanks and bytes outside ASCII
// are percent-encoded, the rest stands as it is.
std::string RequestAddress(std::string_view url);

// True for an address that begins with http:// or https://, in any case, and names a host.
bool IsWebAddress(std::string_view address);

// Scheme, host and port of an address, in lower case: what counts as one host.
std::string HostOf(std::string_view address);

}  // namespace brantlow
