// The signals by which a desktop session or a terminal ends a program. They close its windows in order, as a
// person would: a run ends after the ticker in work, the list of recent files is kept.
#pragma once

namespace brantlow {

// From here on; needs the application object, which it lives with.
void CloseWindowsOnEndSignals();

}  // namespace brantlow
