// A reply of the practice market before it goes over the wire, and how it is made to go wrong.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brantlow {

inline constexpr std::string_view kPlainText = "text/plain; charset=utf-8";
inline constexpr std::string_view kHtml = "text/html; charset=utf-8";

// The statuses of its refusals.
inline constexpr int kBadRequest = 400;
inline constexpr int kUnauthorized = 401;
inline constexpr int kForbidden = 403;
inline constexpr int kNotFound = 404;
inline constexpr int kTooMany = 429;

struct MarketReply {
    int status = 200;
    std::string contentType = std::string(kHtml);
    std::string body;
    // How many bytes of the body are sent before the connection is closed; the whole length is announced.
    std::size_t sentBytes = std::string::npos;
    unsigned bytesPerSecond = 0;     // 0 is as fast as it goes
    unsigned retryAfterSeconds = 0;  // 0 tells none
};

struct FaultRow {
    std::string_view name;
    std::string_view what;  // for the help
    void (*spoil)(MarketReply& reply, std::string_view target);
};

const FaultRow* FindFault(std::string_view name);

// One line a fault, for the help.
std::string FaultHelp();

}  // namespace brantlow
