// The helper program that brings a new version in: it is fetched anew from the vendor's site, and handed out
// to be started only when the maker's signature beside it is good.
#pragma once

#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kUpdaterName = "Updater";
inline constexpr std::string_view kUpdaterPath = "/Updates/brantlow/Updater";
inline constexpr std::string_view kUpdaterSignaturePath = "/Updates/brantlow/Updater.sig";
// Where the changes of a new version are told.
inline constexpr std::string_view kChangesPath = "/Updates/brantlow/about.htm";

inline constexpr std::string_view kNewVersionText =
    "A new version of Brantlow is available for download. To review the changes of the new version, click "
    "the "
    "About link, below. Would you like to update to the new version at this time?";
inline constexpr std::string_view kCloseHelpText = "If help file is open, close help file before continuing.";

struct FetchedUpdater {
    Path program;         // the helper, allowed to run; empty when there is none
    std::string refusal;  // why there is none
};

// Copies the helper that is there to "Back Up/" of the application folder and puts the vendor's in its place.
// One that cannot be fetched, or whose signature is not by the key in `publicKey`, is deleted again and the
// one that was there stays.
FetchedUpdater FetchUpdater(Web& web, const Hosts& hosts, const Path& appPath, const Path& publicKey);

}  // namespace brantlow
