#include "batch/png_picture.h"

#include <dlfcn.h>

#include <array>

#include "chart/picture_module.h"

namespace brantlow {

namespace {

// Loaded once and kept: the toolkit behind it does not go away cleanly before the process does.
PictureRoutine LoadRoutine(const Path& executable, std::string& failure) {
    const Path folder = executable.parent_path();
    const std::array<Path, 2> places = {folder, folder / ".." / BRANTLOW_MODULE_FOLDER};
    for (const Path& place : places) {
        void* const module = dlopen((place / kPictureModule).c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr) continue;
        if (void* const routine = dlsym(module, kPictureRoutine))
            return reinterpret_cast<PictureRoutine>(routine);
    }
    const char* const reason = dlerror();
    failure = std::string(kPictureModule) + ", which paints PNG files, cannot be loaded: " +
              (reason != nullptr ? reason : "it is not the module of this program");
    return nullptr;
}

}  // namespace

PngPicture PaintPng(const Path& executable, const ChartPicture& picture) {
    PngPicture png;
    const PictureRoutine routine = LoadRoutine(executable, png.failure);
    if (routine == nullptr) return png;
    png.bytes = routine(picture);
    if (png.bytes.empty()) png.failure = "the picture cannot be painted";
    return png;
}

}  // namespace brantlow
