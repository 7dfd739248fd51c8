// Shows a text file of the program, a report or a log, to be read and copied from.
#pragma once

#include "base/files.h"

class QWidget;

namespace brantlow {

// Opens a window of its own over `parent`. A file that cannot be read is told in its place.
void ShowTextFile(const Path& file, QWidget* parent);

}  // namespace brantlow
