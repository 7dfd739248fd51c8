// The browser as main() hands it to the main frame: the profile of all browser windows, and the operations on
// them.
#pragma once

#include "research/windows/browser_operations.h"
#include "research/windows/web_profile.h"

namespace brantlow {

class Browser {
  public:
    // Outlives the frame that the operations are handed to. The web engine starts with the first window.
    BrowserOperations Operations();

  private:
    WebProfile profile_;
};

}  // namespace brantlow
