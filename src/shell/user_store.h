// The per-user settings store: an ini file of sections and keys in the user's configuration folder. The main
// frame keeps its geometry there; sections, keys and comments of others stay as they are.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "base/files.h"

namespace brantlow {

// <configHome>/Brantlow/Brantlow.ini. `configHome` is $XDG_CONFIG_HOME; where that is empty or no absolute
// path, <home>/.config stands for it.
Path UserStoreFile(const std::string& configHome, const Path& home);

// The value of `key` in `section`, without blanks around it; `fallback` where the file or the key is missing.
// Where a section or a key stands twice, the first key found counts. Names are case-exact.
std::string GetSetting(const Path& storeFile, std::string_view section, std::string_view key,
                       std::string_view fallback);

// Writes one value, making the file and its folder where needed. A name or a value that such a file cannot
// hold (a line end, a section with "]", a key with "=") is refused. On failure the old file stands.
std::error_code SaveSetting(const Path& storeFile, std::string_view section, std::string_view key,
                            std::string_view value);

// Place and size of the main frame, in twips.
struct FrameGeometry {
    double MainLeft = 1000;
    double MainTop = 1000;
    double MainWidth = 6500;
    double MainHeight = 6500;

    bool operator==(const FrameGeometry&) const = default;
};

// Section "Settings", keys MainLeft, MainTop, MainWidth, MainHeight. A value that is missing, no number,
// beyond any screen, or a size that is not above 0, reads as its default.
FrameGeometry LoadFrameGeometry(const Path& storeFile);
std::error_code SaveFrameGeometry(const Path& storeFile, const FrameGeometry& geometry);

}  // namespace brantlow
