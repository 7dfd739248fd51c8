// How the desktop program ends: with its frame, and at the signals by which a desktop session or a terminal
// ends a program. These close its windows in order, as a person would: a run ends after the ticker in work,
// the list of recent files is kept.
#pragma once

class QWidget;

namespace brantlow {

// From here on; needs the application object, which it lives with. A signal that finds no window open ends
// the event loop, with status 0.
void CloseWindowsOnEndSignals();

// Ends the event loop, with status 0, once `frame` is closed, whatever other window is open then. The toolkit
// alone would wait for the others; a program without its frame would keep the folder for itself.
void EndWithFrame(QWidget& frame);

}  // namespace brantlow
