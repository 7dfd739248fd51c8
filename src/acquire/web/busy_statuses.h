// The statuses by which a host says that it is there and wants to be asked later.
#pragma once

namespace brantlow {

inline constexpr int kTooManyRequests = 429;
inline constexpr int kServiceUnavailable = 503;

}  // namespace brantlow
