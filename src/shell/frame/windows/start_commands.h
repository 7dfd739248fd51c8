// What the welcome page leads to: the tables to go on with, and the practice table.
#pragma once

#include <string>

#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

class StartCommands final {
  public:
    // `frame` outlives this.
    explicit StartCommands(const FrameHands& frame) : frame_(frame) {}

    // Opens the practice table. Where there is none it is made first, with its history; what stands in its
    // way is told.
    void OpenPractice();
    // Opens a table and fetches its quotes of the day.
    void OpenAndUpdate(const std::string& name);

  private:
    const FrameHands& frame_;
};

}  // namespace brantlow
