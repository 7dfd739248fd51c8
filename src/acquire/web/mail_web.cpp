#include "acquire/web/mail_web.h"

#include <curl/curl.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <optional>

#include "acquire/web/curl_list.h"
#include "base/control_characters.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr long kMailConnectMilliseconds = 10'000;
constexpr int kPollMilliseconds = 20;
constexpr long kFirstTemporary = 400;
constexpr long kFirstLasting = 500;
constexpr long kFirstBeyond = 600;
constexpr std::size_t kLongestWords = 300;

// What is not trusted with a mail, whatever it would take.
struct UnsafeOffer {
    CURLcode code;
    std::string_view words;
};
constexpr std::array<UnsafeOffer, 2> kUnsafeOffers = {
    {{CURLE_USE_SSL_FAILED, "the server offers no encrypted connection"},
     {CURLE_PEER_FAILED_VERIFICATION, "its certificate is not trusted"}}};

double Seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Keeps the last refusal that the server said; the library hands its lines over as heads.
std::size_t TakeLine(char* data, std::size_t size, std::size_t count, void* target) {
    const std::size_t length = size * count;
    const bool isRefusal = length > 0 && (data[0] == '4' || data[0] == '5');
    if (isRefusal) static_cast<std::string*>(target)->assign(data, std::min(length, kLongestWords));
    return length;
}

// What a server may say is shown to a person: no control characters, and not what it was told in secret.
std::string Shown(std::string words, const MailRequest& request) {
    for (char& c : words) {
        if (IsControl(c)) c = ' ';
    }
    for (std::size_t at = 0; !request.password.empty();) {
        at = words.find(request.password, at);
        if (at == std::string::npos) break;
        words.replace(at, request.password.size(), "***");
    }
    return std::string(Trim(words));
}

// Another try may help.
bool IsPassing(CURLcode code, long status) {
    constexpr std::array kPassing = {CURLE_COULDNT_RESOLVE_HOST, CURLE_COULDNT_CONNECT,
                                     CURLE_OPERATION_TIMEDOUT,   CURLE_SSL_CONNECT_ERROR,
                                     CURLE_RECV_ERROR,           CURLE_GOT_NOTHING};
    // A step that the library cannot do without counts for good, whatever the server called it.
    if (code == CURLE_USE_SSL_FAILED || code == CURLE_PEER_FAILED_VERIFICATION) return false;
    if (status >= kFirstTemporary && status < kFirstLasting) return true;
    if (status >= kFirstLasting && status < kFirstBeyond) return false;
    return std::find(kPassing.begin(), kPassing.end(), code) != kPassing.end();
}

struct Transfer {
    explicit Transfer(const MailRequest& asked)
        : request(asked),
          headers(CurlListOf(asked.headers)),
          recipients(CurlListOf(Bracketed(asked.recipients))) {}
    ~Transfer() {
        if (multi != nullptr && easy != nullptr) curl_multi_remove_handle(multi, easy);
        curl_easy_cleanup(easy);
        curl_mime_free(mime);
        curl_multi_cleanup(multi);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    static std::vector<std::string> Bracketed(const std::vector<std::string>& addresses) {
        std::vector<std::string> bracketed;
        for (const std::string& address : addresses) bracketed.push_back("<" + address + ">");
        return bracketed;
    }

    bool Begin() {
        if (multi == nullptr || easy == nullptr) return false;
        const bool isTls = request.security == MailSecurity::Tls;
        url = fmt::format("{}://{}:{}", isTls ? "smtps" : "smtp", request.host, request.port);
        Prepare();
        return curl_multi_add_handle(multi, easy) == CURLM_OK;
    }

    void Prepare() {
        curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
        curl_easy_setopt(easy, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
        curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
        curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 2L);
        const char* const trusted = std::getenv("SSL_CERT_FILE");
        if (trusted != nullptr && *trusted != '\0') curl_easy_setopt(easy, CURLOPT_CAINFO, trusted);
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, kMailConnectMilliseconds);
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, errorText.data());
        curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &TakeLine);
        curl_easy_setopt(easy, CURLOPT_HEADERDATA, &lastLine);
        if (!request.user.empty()) {
            curl_easy_setopt(easy, CURLOPT_USERNAME, request.user.c_str());
            curl_easy_setopt(easy, CURLOPT_PASSWORD, request.password.c_str());
        }
        sender = "<" + request.sender + ">";
        curl_easy_setopt(easy, CURLOPT_MAIL_FROM, sender.c_str());
        curl_easy_setopt(easy, CURLOPT_MAIL_RCPT, recipients.get());
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers.get());
        mime = curl_mime_init(easy);
        curl_mimepart* const part = curl_mime_addpart(mime);
        curl_mime_data(part, request.text.data(), request.text.size());
        curl_mime_type(part, "text/plain; charset=utf-8");
        curl_mime_encoder(part, "quoted-printable");
        curl_easy_setopt(easy, CURLOPT_MIMEPOST, mime);
    }

    // The result once the transfer has ended.
    std::optional<CURLcode> Ended() {
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi, &left)) {
            if (message->msg == CURLMSG_DONE) return message->data.result;
        }
        return std::nullopt;
    }

    MailReply ReplyOf(CURLcode code) const {
        if (code == CURLE_OK) return {};
        long status = 0;
        curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &status);
        MailReply reply;
        reply.outcome = IsPassing(code, status) ? MailOutcome::Later : MailOutcome::Refused;
        const char* const text = errorText.front() == '\0' ? curl_easy_strerror(code) : errorText.data();
        reply.words = Shown(lastLine.empty() ? text : lastLine, request);
        for (const UnsafeOffer& offer : kUnsafeOffers) {
            if (code != offer.code) continue;
            reply.isUnsafe = true;
            reply.words = fmt::format("{}, so nothing was sent ({})", offer.words, reply.words);
        }
        return reply;
    }

    const MailRequest& request;
    CURLM* multi = curl_multi_init();
    CURL* easy = curl_easy_init();
    curl_mime* mime = nullptr;
    CurlList headers;
    CurlList recipients;
    std::string url;
    std::string sender;
    std::string lastLine;  // of its refusals
    std::array<char, CURL_ERROR_SIZE> errorText{};
};

}  // namespace

MailReply CurlMail::Send(const MailRequest& request) {
    Transfer transfer(request);
    if (!transfer.Begin()) return {MailOutcome::Later, "the network library cannot start"};
    const double end = Seconds() + request.limitSeconds;
    for (;;) {
        int running = 0;
        curl_multi_perform(transfer.multi, &running);
        if (const auto code = transfer.Ended()) return transfer.ReplyOf(*code);
        curl_multi_poll(transfer.multi, nullptr, 0, kPollMilliseconds, nullptr);
        if (person_ != nullptr) person_->PumpEvents();
        if (request.isStopped && request.isStopped()) return {MailOutcome::Stopped, "stopped"};
        if (Seconds() > end) {
            return {MailOutcome::Later,
                    fmt::format("no whole answer within {} seconds", request.limitSeconds)};
        }
    }
}

}  // namespace brantlow
