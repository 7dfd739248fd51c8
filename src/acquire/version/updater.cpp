#include "acquire/version/updater.h"

#include "acquire/version/signature.h"
#include "acquire/web/downloads.h"

namespace brantlow {

namespace {

// The download has a name of its own until it is known to be good.
constexpr std::string_view kNewEnding = ".new";
constexpr std::string_view kSignatureEnding = ".sig";

void KeepOldHelper(const Path& helper, const Path& appPath) {
    const ReadResult old = ReadWholeFile(helper);
    if (old.outcome != ReadOutcome::Done) return;
    std::error_code ignored;
    std::filesystem::create_directories(appPath / "Back Up", ignored);
    // A copy that fails keeps nobody from updating.
    static_cast<void>(WriteWholeFile(appPath / "Back Up" / kUpdaterName, old.bytes));
}

bool Fetch(Web& web, const Hosts& hosts, std::string_view path, const Path& target) {
    return DownloadFile(web, hosts.Address(Host::Vendor) + std::string(path), target);
}

std::error_code PutInPlace(const Path& fresh, const Path& helper) {
    std::error_code error;
    std::filesystem::permissions(fresh, std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add, error);
    if (!error) std::filesystem::rename(fresh, helper, error);
    return error;
}

std::string TakeHelper(Web& web, const Hosts& hosts, const Path& helper, const Path& publicKey) {
    const Path fresh = helper.string() + std::string(kNewEnding);
    const Path signature = helper.string() + std::string(kSignatureEnding);
    const bool fetched =
        Fetch(web, hosts, kUpdaterPath, fresh) && Fetch(web, hosts, kUpdaterSignaturePath, signature);
    const bool isGood =
        fetched && IsSignedBy(BytesOrEmpty(publicKey), BytesOrEmpty(fresh), BytesOrEmpty(signature));
    const std::error_code error = isGood ? PutInPlace(fresh, helper) : std::error_code();
    if (isGood && !error) return {};
    DeleteOneFile(fresh);
    DeleteOneFile(signature);
    if (!fetched) return "The update could not be downloaded.";
    if (error) return CannotBeSaved(helper, error);
    return "The downloaded update does not bear the signature of its maker. It was deleted and nothing was "
           "changed.";
}

}  // namespace

FetchedUpdater FetchUpdater(Web& web, const Hosts& hosts, const Path& appPath, const Path& publicKey) {
    const Path helper = appPath / kUpdaterName;
    KeepOldHelper(helper, appPath);
    std::string refusal = TakeHelper(web, hosts, helper, publicKey);
    if (!refusal.empty()) return {{}, std::move(refusal)};
    return {helper, {}};
}

}  // namespace brantlow
