#include "chart/picture_files.h"

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kImages = "Images";
// Bytes of a caption in a file name; what is left of 255 serves the extension and a temporary name.
constexpr std::size_t kLongestCaption = 200;
constexpr char kFirstPrintable = ' ';

bool CanStandInFileName(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= static_cast<unsigned char>(kFirstPrintable) && c != '/' && c != '\\' && c != '\x7f';
}

// Not in the middle of a character of several bytes.
std::size_t CutPlace(std::string_view text, std::size_t most) {
    constexpr unsigned char kFollowMask = 0xc0;
    constexpr unsigned char kFollowByte = 0x80;
    if (text.size() <= most) return text.size();
    while (most > 0 && (static_cast<unsigned char>(text[most]) & kFollowMask) == kFollowByte) --most;
    return most;
}

}  // namespace

Path ImagesFolder(const Path& appPath) {
    return appPath / kImages;
}

Path ImageFile(const Path& appPath, std::string_view caption, std::string_view extension) {
    std::string name(caption.substr(0, CutPlace(caption, kLongestCaption)));
    for (char& c : name) {
        if (!CanStandInFileName(c)) c = '_';
    }
    if (name.empty()) name = "_";
    return ImagesFolder(appPath) / name.append(extension);
}

Path WithExtension(const Path& file, std::string_view extension) {
    const std::string& name = file.native();
    const bool has =
        name.size() > extension.size() &&
        EqualIgnoringCase(std::string_view(name).substr(name.size() - extension.size()), extension);
    Path extended = file;
    if (!has) extended += extension;
    return extended;
}

std::error_code SaveTextFile(const Path& path, std::string_view text) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    return error ? error : WriteWholeFile(path, text);
}

Extent FitToPage(const Extent& picture, const Extent& page) {
    const auto isEmpty = [](const Extent& extent) { return !(extent.width > 0 && extent.height > 0); };
    if (isEmpty(picture) || isEmpty(page)) return {};
    const double pictureRatio = picture.width / picture.height;
    const double pageRatio = page.width / page.height;
    if (pictureRatio >= pageRatio) return {page.width, page.width / pictureRatio};
    return {page.height * pictureRatio, page.height};
}

}  // namespace brantlow
