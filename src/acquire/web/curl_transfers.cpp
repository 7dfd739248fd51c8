#include "acquire/web/curl_transfers.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "acquire/web/busy_statuses.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr long kStatusOk = 200;

// Seconds before each repeat where the host names none.
constexpr std::array<double, 4> kRepeatWaits = {1, 2, 4, 8};
constexpr double kLongestRepeatWait = 60;
constexpr double kSecondsPerDay = 86'400;

constexpr long kMostRedirects = 10;
constexpr long kConnectMilliseconds = 30'000;
constexpr long kKeptConnections = 16;

// This machine is never reached through a proxy.
constexpr std::string_view kLoopbackNames = "localhost,127.0.0.1,::1";

// libcurl's process-wide part, set up before the first handle. It outlives every handle.
void SetUpLibrary() {
    [[maybe_unused]] static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
}

std::string NamesWithoutProxy() {
    const char* own = std::getenv("no_proxy");
    if (own == nullptr) own = std::getenv("NO_PROXY");
    return own == nullptr || *own == '\0' ? std::string(kLoopbackNames)
                                          : fmt::format("{},{}", own, kLoopbackNames);
}

WebFailure FailureOf(CURLcode code) {
    switch (code) {
        case CURLE_URL_MALFORMAT:
            return WebFailure::BadAddress;
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_RESOLVE_PROXY:
            return WebFailure::NoHost;
        case CURLE_COULDNT_CONNECT:
        case CURLE_OPERATION_TIMEDOUT:
        case CURLE_SSL_CONNECT_ERROR:
            return WebFailure::NoConnection;
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_INVALIDCERTSTATUS:
            return WebFailure::Certificate;
        case CURLE_TOO_MANY_REDIRECTS:
        case CURLE_UNSUPPORTED_PROTOCOL:
            return WebFailure::Redirected;
        case CURLE_FILESIZE_EXCEEDED:
            return WebFailure::TooLarge;
        default:
            return WebFailure::Broken;
    }
}

void Fail(WebReply& reply, WebFailure failure, std::string error) {
    reply.ok = false;
    reply.failure = failure;
    reply.error = std::move(error);
    reply.bytes.clear();
}

// Seconds the host asks to be left alone, a day at most, 0 when it names none.
double RetryAfter(CURL* handle) {
    curl_off_t seconds = 0;
    curl_easy_getinfo(handle, CURLINFO_RETRY_AFTER, &seconds);
    return std::clamp(static_cast<double>(seconds), 0.0, kSecondsPerDay);
}

void ReadAnswerHead(CURL* handle, WebReply& reply) {
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    reply.status = static_cast<int>(status);
    const char* type = nullptr;
    curl_easy_getinfo(handle, CURLINFO_CONTENT_TYPE, &type);
    reply.contentType = type == nullptr ? "" : type;
    reply.retryAfterSeconds = RetryAfter(handle);
}

}  // namespace

CurlTransfers::CurlTransfers() : multi_(nullptr), headers_(HeadersWith({})), noProxy_(NamesWithoutProxy()) {
    SetUpLibrary();
    multi_ = curl_multi_init();
    if (multi_ == nullptr) throw std::runtime_error("The network library cannot start.");
    curl_multi_setopt(multi_, CURLMOPT_MAXCONNECTS, kKeptConnections);
}

CurlList CurlTransfers::HeadersWith(const std::vector<std::string>& own) {
    std::vector<std::string> lines = {"Cache-Control: no-cache", "Pragma: no-cache"};
    lines.insert(lines.end(), own.begin(), own.end());
    return CurlListOf(lines);
}

CurlTransfers::~CurlTransfers() {
    for (auto& [ticket, transfer] : transfers_) ReleaseHandle(*transfer);
    for (CURL* handle : idle_) curl_easy_cleanup(handle);
    curl_multi_cleanup(multi_);
}

WebTicket CurlTransfers::Add(const WebRequest& request) {
    auto transfer = std::make_unique<Transfer>();
    transfer->request = request;
    transfer->host = HostOf(request.url);
    transfers_.emplace(++lastTicket_, std::move(transfer));
    return lastTicket_;
}

WebTicket CurlTransfers::AddDone(const WebRequest& request, WebReply reply) {
    const WebTicket ticket = Add(request);
    Transfer& transfer = *transfers_.at(ticket);
    transfer.phase = Phase::Done;
    transfer.reply = std::move(reply);
    return ticket;
}

void CurlTransfers::Round(double now) {
    StartQueued(now);
    int running = 0;
    curl_multi_perform(multi_, &running);
    SettleEnded(now);
    EndSilent(now);
}

void CurlTransfers::EndSilent(double now) {
    for (auto& [ticket, transfer] : transfers_) {
        const std::optional<double>& silent = transfer->request.silentSeconds;
        if (transfer->phase != Phase::Running || !silent) continue;
        if (now - transfer->watchedSince < *silent) continue;
        if (transfer->watchedBytes >= kFewestBytes) {
            transfer->watchedSince = now;
            transfer->watchedBytes = 0;
            continue;
        }
        ReadAnswerHead(transfer->handle, transfer->reply);
        ReleaseHandle(*transfer);
        transfer->phase = Phase::Done;
        Fail(transfer->reply, WebFailure::Silent,
             fmt::format("The host was silent for {} seconds.", *silent));
    }
}

bool CurlTransfers::WaitForTraffic(double seconds) {
    const bool underWay = std::any_of(transfers_.begin(), transfers_.end(), [](const auto& entry) {
        return entry.second->phase == Phase::Running;
    });
    if (!underWay) return false;
    constexpr double kMillisecondsPerSecond = 1000;
    const int milliseconds = std::max(1, static_cast<int>(seconds * kMillisecondsPerSecond));
    return curl_multi_poll(multi_, nullptr, 0, milliseconds, nullptr) == CURLM_OK;
}

const WebRequest* CurlTransfers::RequestOf(WebTicket ticket) const {
    const auto found = transfers_.find(ticket);
    return found == transfers_.end() ? nullptr : &found->second->request;
}

bool CurlTransfers::IsDone(WebTicket ticket) const {
    const auto found = transfers_.find(ticket);
    return found != transfers_.end() && found->second->phase == Phase::Done;
}

WebReply CurlTransfers::TakeOut(WebTicket ticket) {
    const auto found = transfers_.find(ticket);
    if (found == transfers_.end()) return FailedReply(WebFailure::Stopped, "The request was abandoned.");
    Transfer& transfer = *found->second;
    if (transfer.phase == Phase::Running) ReadAnswerHead(transfer.handle, transfer.reply);
    ReleaseHandle(transfer);
    WebReply reply = std::move(transfer.reply);
    transfers_.erase(found);
    return reply;
}

void CurlTransfers::Drop(WebTicket ticket) {
    const auto found = transfers_.find(ticket);
    if (found == transfers_.end()) return;
    ReleaseHandle(*found->second);
    transfers_.erase(found);
}

std::size_t CurlTransfers::TakeBytes(char* data, std::size_t size, std::size_t count, void* target) {
    auto& transfer = *static_cast<Transfer*>(target);
    std::string& bytes = transfer.reply.bytes;
    const std::size_t length = size * count;
    transfer.watchedBytes += length;
    if (length > transfer.request.limitBytes - std::min(bytes.size(), transfer.request.limitBytes)) {
        transfer.tooLarge = true;
        return 0;
    }
    // An exception must not cross the library; a short count ends the transfer.
    try {
        bytes.append(data, length);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return length;
}

// The library takes an answer that ends in mid-head for one without a body.
std::size_t CurlTransfers::TakeHeadLine(char* data, std::size_t size, std::size_t count, void* target) {
    auto& transfer = *static_cast<Transfer*>(target);
    const std::size_t length = size * count;
    transfer.headWhole = Trim(std::string_view(data, length)).empty();
    return length;
}

void CurlTransfers::StartQueued(double now) {
    for (auto& [ticket, transfer] : transfers_) {
        if (transfer->phase != Phase::Queued) continue;
        const Host& host = hosts_[transfer->host];
        if (host.running < kRequestsPerHost && now >= host.notBefore) Launch(*transfer, now);
    }
}

void CurlTransfers::Launch(Transfer& transfer, double now) {
    transfer.watchedSince = now;
    transfer.watchedBytes = 0;
    transfer.handle = TakeHandle();
    if (transfer.handle != nullptr) {
        SetOptions(transfer);
        if (curl_multi_add_handle(multi_, transfer.handle) == CURLM_OK) {
            transfer.phase = Phase::Running;
            ++hosts_[transfer.host].running;
            return;
        }
        curl_easy_cleanup(transfer.handle);
        transfer.handle = nullptr;
    }
    transfer.phase = Phase::Done;
    Fail(transfer.reply, WebFailure::NoConnection, "The request cannot be started.");
}

void CurlTransfers::SetOptions(Transfer& transfer) {
    CURL* handle = transfer.handle;
    transfer.errorText.front() = '\0';
    transfer.headWhole = false;
    if (!transfer.request.headers.empty()) transfer.ownHeaders = HeadersWith(transfer.request.headers);
    curl_slist* const headers = transfer.ownHeaders ? transfer.ownHeaders.get() : headers_.get();
    curl_easy_setopt(handle, CURLOPT_URL, transfer.request.url.c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, transfer.request.takesAnyStatus ? 0L : 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, kMostRedirects);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, kConnectMilliseconds);
    curl_easy_setopt(handle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(transfer.request.limitBytes));
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Brantlow/" BRANTLOW_VERSION);
    curl_easy_setopt(handle, CURLOPT_NOPROXY, noProxy_.c_str());
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_ERRORBUFFER, transfer.errorText.data());
    curl_easy_setopt(handle, CURLOPT_PRIVATE, &transfer);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &CurlTransfers::TakeBytes);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &transfer);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &CurlTransfers::TakeHeadLine);
}

void CurlTransfers::SettleEnded(double now) {
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        const CURLcode code = message->data.result;
        char* owner = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &owner);
        Settle(*static_cast<Transfer*>(static_cast<void*>(owner)), code, now);
    }
}

void CurlTransfers::Settle(Transfer& transfer, CURLcode code, double now) {
    WebReply& reply = transfer.reply;
    ReadAnswerHead(transfer.handle, reply);
    const bool repeated = code == CURLE_OK && RepeatLater(transfer, now);
    ReleaseHandle(transfer);
    if (repeated) return;
    transfer.phase = Phase::Done;
    if (transfer.tooLarge || code == CURLE_FILESIZE_EXCEEDED) {
        Fail(reply, WebFailure::TooLarge,
             fmt::format("The reply is longer than {} bytes.", transfer.request.limitBytes));
    } else if (code != CURLE_OK) {
        const char* text = transfer.errorText.data();
        Fail(reply, FailureOf(code), *text == '\0' ? curl_easy_strerror(code) : text);
    } else if (!transfer.headWhole) {
        Fail(reply, WebFailure::Broken, "The answer is cut in its head.");
    } else if (reply.status != kStatusOk && !transfer.request.takesAnyStatus) {
        Fail(reply, WebFailure::Status, fmt::format("The host answered with status {}.", reply.status));
    } else {
        reply.ok = true;
    }
}

bool CurlTransfers::RepeatLater(Transfer& transfer, double now) {
    const int status = transfer.reply.status;
    if (status != kTooManyRequests && status != kServiceUnavailable) return false;
    if (!transfer.request.isRepeated || transfer.repeats == kRepeatWaits.size()) return false;
    const double asked = std::min(transfer.reply.retryAfterSeconds, kLongestRepeatWait);
    const double wait = asked > 0 ? asked : kRepeatWaits.at(transfer.repeats);
    ++transfer.repeats;
    Host& host = hosts_[transfer.host];
    host.notBefore = std::max(host.notBefore, now + wait);
    transfer.reply = {};
    transfer.phase = Phase::Queued;
    return true;
}

void CurlTransfers::ReleaseHandle(Transfer& transfer) {
    if (transfer.handle == nullptr) return;
    curl_multi_remove_handle(multi_, transfer.handle);
    curl_easy_reset(transfer.handle);
    idle_.push_back(transfer.handle);
    transfer.handle = nullptr;
    --hosts_[transfer.host].running;
}

CURL* CurlTransfers::TakeHandle() {
    if (idle_.empty()) return curl_easy_init();
    CURL* handle = idle_.back();
    idle_.pop_back();
    return handle;
}

}  // namespace brantlow
