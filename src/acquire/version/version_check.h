// The check for a newer version of the program at the vendor's site: at the start silently, from the Help
// menu with an answer. The window that offers the update is the caller's.
#pragma once

#include <string>

#include "acquire/web/hosts.h"
#include "acquire/web/url_cache.h"
#include "acquire/web/web.h"
#include "base/files.h"
#include "shell/person.h"

namespace brantlow {

inline constexpr std::string_view kUpdatePagePath = "/Updates/brantlow/updateme.htm";

enum class VersionOutcome {
    Nothing,     // no newer version, or one that only a check by hand would show
    NewVersion,  // to be offered to the user
};

enum class AskedBy { Program, User };

// "Version: " and the running program's major, minor and revision number with points between.
std::string RunningVersion();

// Reads the update page, waiting 10 seconds at most, through "Temp.txt" in the application folder. A page
// without a value, or with the value of `runningVersion`, means that there is nothing newer, which the user
// who asked is told. Any other value purges the cache and is to be offered when the user asked or the
// settings say "Automatic Updates".
VersionOutcome CheckVersion(Web& web, UrlCache& cache, const Hosts& hosts, const SettingsTables& settings,
                            const Path& appPath, std::string_view runningVersion, AskedBy askedBy,
                            Person& person);

}  // namespace brantlow
