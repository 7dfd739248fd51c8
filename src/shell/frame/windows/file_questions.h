// The question for a file to open or to save, as a dialog of the desktop.
#pragma once

#include "base/files.h"

class QWidget;

namespace brantlow {

struct FileQuestion;

// The file that the person chose, empty when the dialog was cancelled. The dialog is the program's own while
// `window` is not in front, as the desktop's would open behind others.
Path AskFile(QWidget& window, const FileQuestion& question);

}  // namespace brantlow
