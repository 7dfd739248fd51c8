// PNG pictures for the batch tool, painted by a module that is loaded when one is asked for.
#pragma once

#include <string>

#include "base/files.h"
#include "chart/chart_picture.h"

namespace brantlow {

struct PngPicture {
    std::string bytes;
    // Why there are none: a sentence.
    std::string failure;
};

// `executable` is the running program's file: the module lies beside it, or in the installation's folder of
// modules.
PngPicture PaintPng(const Path& executable, const ChartPicture& picture);

}  // namespace brantlow
