#include "acquire/web/web.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 2> kSchemes = {"http://", "https://"};

struct FailureWords {
    WebFailure failure;
    std::string_view words;
};

// The failures whose own sentence differs from time to time, or is not for a person.
constexpr std::array<FailureWords, 9> kFailureWords = {
    {{WebFailure::BadAddress, "it is no web address"},
     {WebFailure::NoHost, "the host's name is not known"},
     {WebFailure::NoConnection, "could not connect"},
     {WebFailure::Redirected, "it redirects without end, or to where no web is"},
     {WebFailure::Broken, "the reply was cut"},
     {WebFailure::TimedOut, "no whole reply in time"},
     {WebFailure::Silent, "no whole reply in time"},
     {WebFailure::Stopped, "the run was stopped"},
     {WebFailure::Busy, "another request is being waited for"}}};

char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string ReasonOf(const WebReply& reply) {
    for (const FailureWords& row : kFailureWords) {
        if (row.failure == reply.failure) return std::string(row.words);
    }
    if (reply.failure == WebFailure::Certificate) {
        return fmt::format("its certificate is not valid ({})", reply.error);
    }
    std::string reason = reply.error;
    if (reason.ends_with('.')) reason.pop_back();
    if (!reason.empty()) reason.front() = LowerLetter(reason.front());
    return reason;
}

std::string_view SchemeOf(std::string_view address) {
    for (const std::string_view scheme : kSchemes) {
        if (EqualIgnoringCase(address.substr(0, scheme.size()), scheme)) return scheme;
    }
    return {};
}

bool IsControl(unsigned char byte) {
    constexpr unsigned char kBlank = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    return byte < kBlank || byte == kDelete;
}

bool NeedsEncoding(unsigned char byte) {
    constexpr unsigned char kFirstOutsideAscii = 0x80;
    return byte == ' ' || byte >= kFirstOutsideAscii;
}

}  // namespace

WebReply FailedReply(WebFailure failure, std::string_view error) {
    WebReply reply;
    reply.failure = failure;
    reply.error = error;
    return reply;
}

std::string FailureSentence(std::string_view url, const WebReply& reply) {
    if (reply.failure == WebFailure::GivenUp) return reply.error;
    return fmt::format("No reply from {} : {}", HostOf(url), ReasonOf(reply));
}

std::string NoDataSentence(std::string_view url, std::string_view reason) {
    return fmt::format("No data from {} : {}", HostOf(url), reason);
}

std::string RequestAddress(std::string_view url) {
    std::string address;
    address.reserve(url.size());
    for (const char c : url) {
        const auto byte = static_cast<unsigned char>(c);
        if (IsControl(byte)) continue;
        if (NeedsEncoding(byte)) {
            address += fmt::format("%{:02X}", byte);
        } else {
            address += c;
        }
    }
    return address;
}

bool IsWebAddress(std::string_view address) {
    const std::string_view scheme = SchemeOf(address);
    if (scheme.empty()) return false;
    const std::string_view rest = address.substr(scheme.size());
    return !rest.empty() && std::string_view("/?#:").find(rest.front()) == std::string_view::npos;
}

std::string HostOf(std::string_view address) {
    const std::size_t begin = SchemeOf(address).size();
    std::string host(address.substr(0, address.find_first_of("/?#", begin)));
    std::transform(host.begin(), host.end(), host.begin(), LowerLetter);
    return host;
}

}  // namespace brantlow
