// The one routine of brantlow-picture.so, the module that paints PNG files for the batch tool. The tool loads
// it when a PNG is asked for, so that no other call waits for the window toolkit.
#pragma once

#include <string>

#include "chart/chart_picture.h"

namespace brantlow {

inline constexpr const char* kPictureModule = "brantlow-picture.so";
inline constexpr const char* kPictureRoutine = "BrantlowPng";

// The bytes of the PNG file; empty when it could not be made.
using PictureRoutine = std::string (*)(const ChartPicture& picture);

}  // namespace brantlow
