#include "acquire/version/online_status.h"

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr std::string_view kInternetSettings =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
constexpr std::string_view kOfflineValue = "GlobalUserOffline";
constexpr std::uint32_t kForced = 1;

}  // namespace

std::int64_t GlobalUserOffline(const UserRegistry& registry) {
    return static_cast<std::int64_t>(
        LeadingNumber(ReadRegistryValue(registry, kCurrentUserKey, kInternetSettings, kOfflineValue)));
}

void OnLineStatus(OnlineState& state, const UserRegistry& registry, Web& web) {
    const std::int64_t offline = GlobalUserOffline(registry);
    if (!state.OfflineAtStart) state.OfflineAtStart = offline;
    if (*state.OfflineAtStart != 1) return;
    if (offline == 1) web.SetConnectedState(kStateConnected, 0);
    if (offline == 0) web.SetConnectedState(kStateDisconnectedByUser, kForced);
}

}  // namespace brantlow
