// What the commands of the File menu do with one child of the main frame while it is the active one: Print,
// Print Preview, Save, Save As, Close. Each child hands its own in when it is made (frmMain::SetOperations).
#pragma once

#include <functional>

#include "shell/frame/commands.h"

namespace brantlow {

// An empty routine: the command does nothing with this child.
struct ChildOperations {
    // Added to what the enabling rules see while the child is the active one.
    OpenStates active = 0;
    std::function<void()> print = {};
    std::function<void()> printPreview = {};
    std::function<void()> save = {};
    std::function<void()> saveAs = {};
    std::function<void()> copyPicture = {};
    std::function<void()> close = {};
};

}  // namespace brantlow
