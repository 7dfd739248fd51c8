// Ctrl+Z in a text box that has nothing of its own to undo.
#pragma once

class QLineEdit;

namespace brantlow {

// Where `box` has nothing left to undo, the key is that of the menu or of the window around it. A box takes
// the key for itself otherwise, and nothing happens.
void LeaveUndoToWindow(QLineEdit& box);

}  // namespace brantlow
