// The research commands: pages in the browser window, and pages for the user's own browser.
#pragma once

#include <QPointer>
#include <string>
#include <string_view>

#include "acquire/web/url_cache.h"
#include "research/windows/browser_operations.h"
#include "shell/frame/windows/frame_hands.h"

class QMdiSubWindow;

namespace brantlow {

class BrowserCommands final {
  public:
    // `frame` outlives this; `userStore` is the file of the per-user settings store. Without a browser the
    // research commands open nothing.
    BrowserCommands(const FrameHands& frame, Path userStore, BrowserOperations browser);

    CommandRows Rows();

    // What a research command opens; other commands open nothing.
    void OpenResearch(std::string_view command);
    // Every page gets a new window, which takes the place of the one before it.
    void OpenPage(const std::string& address);
    // The browser window, null when none is open.
    QWidget* Form() const;
    void CloseForm();
    // What pages leave behind: the browser's, where there is one.
    UrlCache& Cache();

  private:
    void OpenUsersForum();
    ChildOperations Operations(QWidget& form);

    const FrameHands& frame_;
    Path userStore_;
    BrowserOperations browser_;
    MemoryUrlCache ownCache_;
    QPointer<QWidget> form_;
    QPointer<QMdiSubWindow> window_;
};

}  // namespace brantlow
