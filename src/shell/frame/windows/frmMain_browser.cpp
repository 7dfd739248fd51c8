// The research commands of the main frame: the browser window, and pages for the user's own browser.
#include <QDesktopServices>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QUrl>

#include "base/windows/display_text.h"
#include "chart/picture_files.h"
#include "research/research_catalogue.h"
#include "shell/frame/windows/frmForumLogin.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/user_store.h"

namespace brantlow {

namespace {

// The share of the area that a browser window takes when it does not fill the whole.
constexpr double kBrowserShare = 0.85;

// Starts the user's browser. A failure passes silently, and so does an address that is none of the web.
void OpenOutside(const std::string& address) {
    const QUrl url = QUrl::fromUserInput(Shown(address));
    if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        QDesktopServices::openUrl(url);
}

// What the File menu does while the browser window is in front. The window outlives the operations.
ChildOperations BrowserChild(const BrowserOperations& browser, QWidget& form) {
    return {.active = kBrowserActive,
            .print = [&browser, &form] { browser.print(form); },
            .printPreview = [&browser, &form] { browser.printPreview(form); },
            .save = [&browser, &form] { browser.savePage(form); },
            .saveAs = [&browser, &form] { browser.savePageAs(form); }};
}

}  // namespace

void frmMain::OpenResearch(std::string_view command) {
    const ResearchTarget target = TargetOf(command, {hosts_, session_.settings}, session_.CurrentTicker);
    if (!target.refusal.empty()) person_.Say(target.refusal);
    if (target.opensIn == OpensIn::Browser) OpenBrowser(target.address);
    if (target.opensIn == OpensIn::OutsideBrowser) OpenOutside(target.address);
}

// The name and the password are asked for where none is stored.
void frmMain::OpenUsersForum() {
    if (LoadForumUser(userStore_).name.empty()) {
        frmForumLogin login(userStore_, this);
        if (login.exec() != QDialog::Accepted) return;
        if (const std::error_code error = login.StoreError()) {
            person_.Say("The name cannot be kept in " + userStore_.string() + " (" + error.message() + ")");
        }
    }
    const ForumUser user = LoadForumUser(userStore_);
    if (!user.name.empty()) OpenBrowser(ForumAddress(hosts_, user.name, user.password));
}

QWidget* frmMain::BrowserForm() const {
    return browserForm_;
}

// Every command makes a new window, which takes the place of the one before it.
void frmMain::OpenBrowser(const std::string& address) {
    if (!browser_.open) return;
    const QMdiSubWindow* const before = browserWindow_.data();
    const bool filled = before == nullptr || before->isMaximized();
    const QRect place = before == nullptr ? QRect() : before->geometry();
    CloseBrowser();
    const std::string search =
        TargetOf("mnuViewSymbolSearch", {hosts_, session_.settings}, std::string_view()).address;
    QWidget* const form =
        browser_.open({address, hosts_.Address(Host::Vendor), search, ImagesFolder(session_.AppPath), person_,
                       [this](const std::string& text) { Notice(text); }});
    QMdiSubWindow* const window = AddChild(*form);
    browserForm_ = form;
    browserWindow_ = window;
    window->setAttribute(Qt::WA_DeleteOnClose);
    SetOperations(*form, BrowserChild(browser_, *form));
    window->resize(area_->viewport()->size() * kBrowserShare);
    if (filled) {
        window->showMaximized();
    } else {
        window->setGeometry(place);
        window->show();
    }
    ApplyRules();
}

void frmMain::CloseBrowser() {
    RemoveChild(browserWindow_);
    browserWindow_ = nullptr;
    browserForm_ = nullptr;
    ApplyRules();
}

}  // namespace brantlow
