#include "acquire/version/version_check.h"

#include <vector>

#include "acquire/web/downloads.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"

namespace brantlow {

namespace {

std::string FirstValueOf(const Path& file) {
    const std::string bytes = BytesOrEmpty(file);
    std::string_view line;
    if (!LineReader(bytes).Next(line)) return {};
    const std::vector<Value> values = ParseRecord(line);
    return values.empty() ? std::string() : std::string(Trim(values.front().Text()));
}

std::string PublishedVersion(Web& web, const std::string& address, const Path& appPath) {
    ScratchFile scratch(appPath / kReplyName);
    std::string text = FetchPageText(web, address, kPageSeconds).value_or("");
    return WriteTextFile(scratch, text) ? std::string() : FirstValueOf(scratch.Name());
}

}  // namespace

std::string RunningVersion() {
    return "Version: " BRANTLOW_VERSION;
}

VersionOutcome CheckVersion(Web& web, UrlCache& cache, const Hosts& hosts, const SettingsTables& settings,
                            const Path& appPath, std::string_view runningVersion, AskedBy askedBy,
                            Person& person) {
    PurgeUrlCache(cache);
    const std::string address = hosts.Address(Host::Vendor) + std::string(kUpdatePagePath);
    const std::string published = PublishedVersion(web, address, appPath);
    if (published.empty() || published == runningVersion) {
        if (askedBy == AskedBy::User) person.Say("No Updates are available.");
        return VersionOutcome::Nothing;
    }
    PurgeUrlCache(cache);
    const bool offered = askedBy == AskedBy::User || ChecksForUpdates(settings);
    return offered ? VersionOutcome::NewVersion : VersionOutcome::Nothing;
}

}  // namespace brantlow
