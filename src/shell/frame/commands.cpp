#include "shell/frame/commands.h"

#include <algorithm>

namespace brantlow {

const MenuEntry* FindMenuEntry(std::string_view id) {
    const auto found =
        std::find_if(kMenu.begin(), kMenu.end(), [&](const MenuEntry& command) { return command.id == id; });
    return found == kMenu.end() ? nullptr : &*found;
}

bool IsEnabled(const MenuEntry& command, OpenStates state, bool inRun) {
    return (command.enabled & state) != 0 && (command.duringRun || !inRun);
}

}  // namespace brantlow
