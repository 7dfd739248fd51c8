#include "acquire/web/service_web.h"

#include <curl/curl.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <new>

namespace brantlow {

namespace {

constexpr long kConnectMilliseconds = 30'000;
constexpr int kPollMilliseconds = 20;
constexpr double kSecondsPerDay = 86'400;

struct FreeList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, FreeList>;

struct Body {
    std::string bytes;
    std::size_t limit = 0;
    bool tooLarge = false;
};

std::size_t TakeBytes(char* data, std::size_t size, std::size_t count, void* target) {
    Body& body = *static_cast<Body*>(target);
    const std::size_t length = size * count;
    body.tooLarge = body.tooLarge || body.bytes.size() + length > body.limit;
    if (body.tooLarge) return 0;
    // An exception must not cross the library; a short count ends the transfer.
    try {
        body.bytes.append(data, length);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return length;
}

List HeadersOf(const ServiceRequest& request) {
    List list;
    for (const std::string& header : request.headers) {
        curl_slist* const grown = curl_slist_append(list.get(), header.c_str());
        if (grown == nullptr) continue;
        (void)list.release();
        list.reset(grown);
    }
    return list;
}

ServiceReply Failed(WebFailure failure, std::string error) {
    ServiceReply reply;
    reply.failure = failure;
    reply.error = std::move(error);
    return reply;
}

double Seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

struct CurlServiceWeb::Handles {
    CURLM* multi = curl_multi_init();
    CURL* easy = curl_easy_init();

    ~Handles() {
        curl_easy_cleanup(easy);
        curl_multi_cleanup(multi);
    }
    bool AreThere() const { return multi != nullptr && easy != nullptr; }

    void Prepare(const std::string& url, const ServiceRequest& request, curl_slist* headers, Body& body,
                 char* errorText) {
        curl_easy_reset(easy);
        curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
        curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
        curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 2L);
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, kConnectMilliseconds);
        curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(request.limitBytes));
        curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
        curl_easy_setopt(easy, CURLOPT_USERAGENT, "Brantlow");
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, errorText);
        curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
        curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &TakeBytes);
    }

    // The result once the transfer has ended.
    std::optional<CURLcode> Ended() {
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi, &left)) {
            if (message->msg == CURLMSG_DONE) return message->data.result;
        }
        return std::nullopt;
    }
};

CurlServiceWeb::CurlServiceWeb(Person& person) : person_(person), handles_(std::make_unique<Handles>()) {}

CurlServiceWeb::~CurlServiceWeb() = default;

ServiceReply CurlServiceWeb::Ask(const ServiceRequest& request) {
    const std::string url = RequestAddress(request.url);
    if (!IsWebAddress(url)) return Failed(WebFailure::BadAddress, "No http or https address.");
    if (!handles_->AreThere()) return Failed(WebFailure::NoConnection, "The network library cannot start.");
    const List headers = HeadersOf(request);
    Body body{{}, request.limitBytes, false};
    std::array<char, CURL_ERROR_SIZE> errorText{};
    handles_->Prepare(url, request, headers.get(), body, errorText.data());
    curl_multi_add_handle(handles_->multi, handles_->easy);
    const double end = Seconds() + request.limitSeconds;
    std::optional<CURLcode> result;
    WebFailure broken = WebFailure::None;
    while (!result && broken == WebFailure::None) {
        int running = 0;
        curl_multi_perform(handles_->multi, &running);
        result = handles_->Ended();
        if (result) break;
        curl_multi_poll(handles_->multi, nullptr, 0, kPollMilliseconds, nullptr);
        person_.PumpEvents();
        if (Seconds() > end) broken = WebFailure::TimedOut;
        if (request.run != nullptr && request.run->ProcessCommand == kStopRun) broken = WebFailure::Stopped;
    }
    curl_multi_remove_handle(handles_->multi, handles_->easy);
    if (broken == WebFailure::TimedOut) {
        return Failed(broken, fmt::format("no whole answer within {} seconds", request.limitSeconds));
    }
    if (broken != WebFailure::None) return Failed(broken, "stopped");
    if (body.tooLarge || *result == CURLE_FILESIZE_EXCEEDED) {
        return Failed(WebFailure::TooLarge,
                      fmt::format("the reply is longer than {} bytes", request.limitBytes));
    }
    if (*result != CURLE_OK) {
        return Failed(WebFailure::NoConnection,
                      errorText.front() == '\0' ? curl_easy_strerror(*result) : errorText.data());
    }
    ServiceReply reply;
    long status = 0;
    curl_off_t retryAfter = 0;
    curl_easy_getinfo(handles_->easy, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(handles_->easy, CURLINFO_RETRY_AFTER, &retryAfter);
    reply.status = static_cast<int>(status);
    reply.retryAfterSeconds = std::clamp(static_cast<double>(retryAfter), 0.0, kSecondsPerDay);
    reply.bytes = std::move(body.bytes);
    return reply;
}

}  // namespace brantlow
