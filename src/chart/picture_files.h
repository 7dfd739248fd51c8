// Pictures and pages kept as files: their folder below the application folder, their names, and the size that
// a picture takes on a printed page. The main frame's Print, Save and Save As use it for the chart, the quote
// table and the browser.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kBitmapExtension = ".bmp";
inline constexpr std::string_view kPngExtension = ".png";
inline constexpr std::string_view kSvgExtension = ".svg";

// Where captures and saved pages go unless another folder is chosen.
Path ImagesFolder(const Path& appPath);

// The file in that folder for a window's caption or a page's title. What a file name cannot hold becomes "_",
// and a name too long is cut.
Path ImageFile(const Path& appPath, std::string_view caption, std::string_view extension);

// `file` ending in `extension`, in whatever case: added where it is missing.
Path WithExtension(const Path& file, std::string_view extension);

// Replaces a file by one text, or by a picture's bytes. A missing folder is made first.
std::error_code SaveTextFile(const Path& path, std::string_view text);

// Width and height in any one unit.
struct Extent {
    double width = 0;
    double height = 0;
};

// The size of a picture that fills the page's width or its height, whichever it reaches first, and keeps its
// proportions. Nothing where a side of either is not above 0.
Extent FitToPage(const Extent& picture, const Extent& page);

}  // namespace brantlow
