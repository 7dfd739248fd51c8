// Which files a person may delete by the Delete File window, and its words.
#pragma once

#include <string_view>

namespace brantlow {

inline constexpr std::string_view kDeleteFileQuestion = "Do you want to delete the file?";
inline constexpr std::string_view kDeleteFileTitle = "Delete File?";
inline constexpr std::string_view kMayNotDelete =
    "You may not delete this file or you may not delete files with these extensions";

// False for the files that the program cannot do without: settings, programs, the template and the selector's
// working file. Case does not count.
bool MayDelete(std::string_view fileName);

}  // namespace brantlow
