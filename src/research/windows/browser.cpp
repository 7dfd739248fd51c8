#include "research/windows/browser.h"

#include "research/windows/frmBrowser.h"

namespace brantlow {

namespace {

// The operation as the frame calls it, on a window that `open` has made.
std::function<void(QWidget&)> OnBrowser(void (frmBrowser::*operation)()) {
    return [operation](QWidget& window) {
        if (auto* browser = qobject_cast<frmBrowser*>(&window)) (browser->*operation)();
    };
}

}  // namespace

BrowserOperations Browser::Operations() {
    BrowserOperations operations;
    operations.open = [this](const BrowserStart& start) -> QWidget* {
        return new frmBrowser(profile_.Get(start.person), start);
    };
    operations.print = OnBrowser(&frmBrowser::Print);
    operations.printPreview = OnBrowser(&frmBrowser::PrintPreview);
    operations.savePage = OnBrowser(&frmBrowser::SavePage);
    operations.savePageAs = OnBrowser(&frmBrowser::SavePageAs);
    operations.cache = &profile_;
    return operations;
}

}  // namespace brantlow
