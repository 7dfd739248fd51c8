// Keeps the web layer online while the program works for a user whose system is set to work offline.
#pragma once

#include <cstdint>
#include <optional>

#include "acquire/version/user_registry.h"
#include "acquire/web/web.h"

namespace brantlow {

struct OnlineState {
    // The system's offline flag as it was found the first time; empty until then.
    std::optional<std::int64_t> OfflineAtStart;
};

// The value `GlobalUserOffline` of the per-user store, 0 where it is missing.
std::int64_t GlobalUserOffline(const UserRegistry& registry);

// Reads the flag. For a user who started offline it puts the web layer online while the flag still stands,
// and back offline once it has been cleared.
void OnLineStatus(OnlineState& state, const UserRegistry& registry, Web& web);

}  // namespace brantlow
