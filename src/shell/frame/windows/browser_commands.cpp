#include "shell/frame/windows/browser_commands.h"

#include <QDesktopServices>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QUrl>
#include <utility>

#include "base/windows/display_text.h"
#include "chart/picture_files.h"
#include "research/research_catalogue.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frmForumLogin.h"
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

}  // namespace

BrowserCommands::BrowserCommands(const FrameHands& frame, Path userStore, BrowserOperations browser)
    : frame_(frame), userStore_(std::move(userStore)), browser_(std::move(browser)) {}

CommandRows BrowserCommands::Rows() {
    static constexpr SubjectRow<BrowserCommands> kRows[] = {
        {"mnuHelpUsersForum", &BrowserCommands::OpenUsersForum},
    };
    return RowsOf(*this, kRows);
}

void BrowserCommands::OpenResearch(std::string_view command) {
    const ResearchTarget target =
        TargetOf(command, {frame_.hosts, frame_.session.settings}, TickerMeant(frame_.table, frame_.session));
    if (!target.refusal.empty()) frame_.person.Say(target.refusal);
    if (target.opensIn == OpensIn::Browser) OpenPage(target.address);
    if (target.opensIn == OpensIn::OutsideBrowser) OpenOutside(target.address);
}

// The name and the password are asked for where none is stored.
void BrowserCommands::OpenUsersForum() {
    if (LoadForumUser(userStore_).name.empty()) {
        frmForumLogin login(userStore_, &frame_.window);
        if (login.exec() != QDialog::Accepted) return;
        if (Failure failure = FailedTo(FailureKind::Write, userStore_, login.StoreError()))
            frame_.person.Say(Sentence(std::move(failure).About("the name is not kept")));
    }
    const ForumUser user = LoadForumUser(userStore_);
    if (!user.name.empty()) OpenPage(ForumAddress(frame_.hosts, user.name, user.password));
}

QWidget* BrowserCommands::Form() const {
    return form_;
}

void BrowserCommands::OpenPage(const std::string& address) {
    if (!browser_.open) return;
    const QMdiSubWindow* const before = window_.data();
    const bool filled = before == nullptr || before->isMaximized();
    const QRect place = before == nullptr ? QRect() : before->geometry();
    CloseForm();
    const std::string search =
        TargetOf("mnuViewSymbolSearch", {frame_.hosts, frame_.session.settings}, std::string_view()).address;
    QWidget* const form = browser_.open({address, frame_.hosts.Address(Host::Vendor), search,
                                         ImagesFolder(frame_.session.AppPath), frame_.person, frame_.notice});
    QMdiSubWindow* const window = frame_.children.Add(*form);
    form_ = form;
    window_ = window;
    window->setAttribute(Qt::WA_DeleteOnClose);
    frame_.children.SetOperations(*form, Operations(*form));
    window->resize(frame_.children.ViewSize() * kBrowserShare);
    if (filled) {
        window->showMaximized();
    } else {
        window->setGeometry(place);
        window->show();
    }
    frame_.applyRules();
}

// The window outlives the operations.
ChildOperations BrowserCommands::Operations(QWidget& form) {
    return {.active = kBrowserActive,
            .print = [this, &form] { browser_.print(form); },
            .printPreview = [this, &form] { browser_.printPreview(form); },
            .save = [this, &form] { browser_.savePage(form); },
            .saveAs = [this, &form] { browser_.savePageAs(form); },
            .close = [this] { CloseForm(); }};
}

UrlCache& BrowserCommands::Cache() {
    if (browser_.cache != nullptr) return *browser_.cache;
    return ownCache_;
}

void BrowserCommands::CloseForm() {
    frame_.children.Remove(window_);
    window_ = nullptr;
    form_ = nullptr;
    frame_.applyRules();
}

}  // namespace brantlow
