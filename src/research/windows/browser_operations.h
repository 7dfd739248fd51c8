// The browser window as the main frame knows it. Its engine is heavy, so it stands in a library of its own
// that main() alone links: it hands these operations in, and the other windows do without.
#pragma once

#include <functional>
#include <string>

#include "acquire/web/url_cache.h"
#include "base/files.h"
#include "shell/person.h"

class QWidget;

namespace brantlow {

// What a new browser window begins with.
struct BrowserStart {
    std::string StartingAddress;
    std::string home;    // where "Home" leads
    std::string search;  // where "Search" leads
    Path images;         // the folder of saved pages
    Person& person;      // outlives the window
    // Tells in passing what was done.
    std::function<void(const std::string&)> notice;
};

struct BrowserOperations {
    // Makes a browser window, a child without a place yet, and sends it on its way.
    std::function<QWidget*(const BrowserStart&)> open;
    // What the frame's File menu does to a window that `open` has made. A page that is still loading is not
    // saved.
    std::function<void(QWidget&)> print;
    std::function<void(QWidget&)> printPreview;
    std::function<void(QWidget&)> savePage;
    std::function<void(QWidget&)> savePageAs;
    // Pages and cookies that browser windows keep; null without a browser.
    UrlCache* cache = nullptr;
};

}  // namespace brantlow
