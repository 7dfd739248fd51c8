// The requests that CurlWeb has under way, with their libcurl handles: who waits for room at its host, who is
// on its way, who is done. Knows nothing of persons and limits of time; CurlWeb drives it.
#pragma once

#include <curl/curl.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "acquire/web/curl_list.h"
#include "acquire/web/web.h"

namespace brantlow {

class CurlTransfers {
  public:
    CurlTransfers();
    ~CurlTransfers();
    CurlTransfers(const CurlTransfers&) = delete;
    CurlTransfers& operator=(const CurlTransfers&) = delete;

    // Queues a request whose address is clean.
    WebTicket Add(const WebRequest& request);
    // Queues nothing: the reply is there already.
    WebTicket AddDone(const WebRequest& request, WebReply reply);

    // One round at the time `now`: starts what has room, moves bytes, settles what ended. Never waits.
    void Round(double now);
    // Waits up to `seconds` for a connection to have something to do; false, at once, when no request is on
    // its way.
    bool WaitForTraffic(double seconds);

    // Null for a ticket that is unknown or taken.
    const WebRequest* RequestOf(WebTicket ticket) const;
    bool IsDone(WebTicket ticket) const;
    // The reply of a request that is done, or what has come of it so far; forgets the request.
    WebReply TakeOut(WebTicket ticket);
    void Drop(WebTicket ticket);

  private:
    enum class Phase { Queued, Running, Done };
    struct Transfer {
        WebRequest request;
        std::string host;
        Phase phase = Phase::Queued;
        CURL* handle = nullptr;
        CurlList ownHeaders;  // where the request has some, with those of every request in front
        WebReply reply;
        std::size_t repeats = 0;
        bool tooLarge = false;
        // Since when its silence is watched, and the bytes that have come since.
        double watchedSince = 0;
        std::size_t watchedBytes = 0;
        // The last answer's head has come to its empty line.
        bool headWhole = false;
        std::array<char, CURL_ERROR_SIZE> errorText{};
    };
    struct Host {
        std::size_t running = 0;
        // No request leaves before this moment.
        double notBefore = 0;
    };

    static std::size_t TakeBytes(char* data, std::size_t size, std::size_t count, void* transfer);
    static std::size_t TakeHeadLine(char* data, std::size_t size, std::size_t count, void* transfer);
    void StartQueued(double now);
    void Launch(Transfer& transfer, double now);
    void SetOptions(Transfer& transfer);
    void SettleEnded(double now);
    void EndSilent(double now);
    void Settle(Transfer& transfer, CURLcode code, double now);
    bool RepeatLater(Transfer& transfer, double now);
    void ReleaseHandle(Transfer& transfer);
    CURL* TakeHandle();

    static CurlList HeadersWith(const std::vector<std::string>& own);

    CURLM* multi_;
    CurlList headers_;
    std::string noProxy_;
    // Handles that wait for their next request.
    std::vector<CURL*> idle_;
    // In the order of their start.
    std::map<WebTicket, std::unique_ptr<Transfer>> transfers_;
    std::map<std::string, Host> hosts_;
    WebTicket lastTicket_ = 0;
};

}  // namespace brantlow
