#include "research/windows/frmBrowser.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QIcon>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <algorithm>
#include <functional>

#include "base/failure.h"
#include "base/windows/desktop_picture.h"
#include "base/windows/display_text.h"
#include "research/saved_page.h"
#include "research/windows/page_printing.h"
#include "research/windows/web_page.h"
#include "research/windows/web_rules.h"

namespace brantlow {

namespace {

constexpr int kPollMs = 100;
constexpr int kIconPixels = 22;
constexpr int kMargin = 4;
constexpr int kMostShownAddresses = 20;

const QString kCaption = QStringLiteral("Brantlow Web Browser");

// The source as a file of UTF-8. Its first bytes say so wherever it matters: the page itself may still name
// the encoding that it came in.
std::string FileText(const QString& source) {
    const bool plain = std::all_of(source.begin(), source.end(), [](QChar c) { return c.unicode() < 0x80; });
    return (plain ? "" : "\xEF\xBB\xBF") + source.toStdString();
}

}  // namespace

frmBrowser::frmBrowser(QWebEngineProfile& profile, const BrowserStart& start)
    : home_(Shown(start.home)),
      search_(Shown(start.search)),
      images_(start.images),
      person_(start.person),
      notice_(start.notice),
      tbToolBar(new QToolBar),
      picAddress(new QWidget),
      cboAddress(new QComboBox),
      brwWebBrowser(new QWebEngineView) {
    setObjectName(QStringLiteral("frmBrowser"));
    setWindowTitle(kCaption);
    setWindowIcon(QIcon(QStringLiteral(":/icons/browser.svg")));
    BuildView(profile);
    BuildButtons();
    BuildAddressStrip();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tbToolBar);
    layout->addWidget(picAddress);
    layout->addWidget(brwWebBrowser, 1);
    setFocusProxy(brwWebBrowser);
    brwWebBrowser->setFocus();
    timTimer.setObjectName(QStringLiteral("timTimer"));
    timTimer.setInterval(kPollMs);
    connect(&timTimer, &QTimer::timeout, this, &frmBrowser::timTimer_Timer);
    if (!start.StartingAddress.empty()) GoTo(Shown(start.StartingAddress));
}

// The page dies before the profile, and it tells nothing more on its way.
frmBrowser::~frmBrowser() {
    page_->disconnect(this);
    delete brwWebBrowser;
}

void frmBrowser::BuildView(QWebEngineProfile& profile) {
    brwWebBrowser->setObjectName(QStringLiteral("brwWebBrowser"));
    brwWebBrowser->setAccessibleName(QStringLiteral("Page"));
    brwWebBrowser->setContextMenuPolicy(Qt::NoContextMenu);
    page_ = new WebPage(profile, brwWebBrowser);
    brwWebBrowser->setPage(page_);
    connect(page_, &QWebEnginePage::loadStarted, this, &frmBrowser::DownloadBegin);
    connect(page_, &QWebEnginePage::urlChanged, this, &frmBrowser::NavigateComplete);
    connect(page_, &QWebEnginePage::loadFinished, this, &frmBrowser::DownloadComplete);
    connect(page_, &QWebEnginePage::titleChanged, this, &frmBrowser::ShowLocationName);
    connect(page_, &WebPage::FileRefused, this, [this] {
        if (notice_) notice_("The page asked for a file of this computer. Pages are given none.");
    });
    connect(page_, &QWebEnginePage::printRequested, this, &frmBrowser::Print);
}

QAction* frmBrowser::AddButton(const char* key, const char* icon, const char* toolTip,
                               const QKeySequence& shortcut) {
    QAction* button =
        tbToolBar->addAction(DesktopPicture(QString::fromLatin1(icon)), QString::fromLatin1(key));
    button->setObjectName(QString::fromLatin1(key));
    button->setShortcut(shortcut);
    button->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString words = QString::fromLatin1(toolTip);
    button->setToolTip(shortcut.isEmpty() ? words
                                          : QStringLiteral("%1 (%2)").arg(
                                                words, shortcut.toString(QKeySequence::NativeText)));
    addAction(button);
    return button;
}

void frmBrowser::BuildButtons() {
    struct Row {
        const char* key;
        const char* icon;
        const char* toolTip;
        QKeySequence shortcut;
        std::function<void()> run;
    };
    const Row rows[] = {
        {"Back", "back", "Back to the page before", Qt::ALT | Qt::Key_Left,
         [this] { brwWebBrowser->back(); }},
        {"Forward", "forward", "Forward again", Qt::ALT | Qt::Key_Right,
         [this] { brwWebBrowser->forward(); }},
        {"Refresh", "refresh", "Load the page again", Qt::CTRL | Qt::Key_R,
         [this] { brwWebBrowser->reload(); }},
        {"Home", "home", "Brantlow's own pages", Qt::ALT | Qt::Key_Home, [this] { GoHome(); }},
        {"Search", "search", "Search for a company", {}, [this] { GoSearch(); }},
        {"Stop", "stop", "Stop loading", Qt::Key_Escape, [this] { Stop(); }},
    };
    tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
    tbToolBar->setIconSize({kIconPixels, kIconPixels});
    for (const Row& row : rows) {
        connect(AddButton(row.key, row.icon, row.toolTip, row.shortcut), &QAction::triggered, this,
                [this, run = row.run] {
                    timTimer.start();
                    run();
                });
    }
    FollowHistory();
}

void frmBrowser::BuildAddressStrip() {
    picAddress->setObjectName(QStringLiteral("picAddress"));
    cboAddress->setObjectName(QStringLiteral("cboAddress"));
    cboAddress->setEditable(true);
    cboAddress->setInsertPolicy(QComboBox::NoInsert);
    // Enter is told once, by the line, even for an address of the list.
    cboAddress->setDuplicatesEnabled(true);
    cboAddress->setMaxVisibleItems(kMostShownAddresses);
    cboAddress->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    cboAddress->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboAddress->setAccessibleName(QStringLiteral("Address"));
    cboAddress->setToolTip(QStringLiteral("The page's address (Ctrl+L)"));
    cboAddress->lineEdit()->setPlaceholderText(QStringLiteral("Type an address and press Enter"));
    auto* strip = new QHBoxLayout(picAddress);
    strip->setContentsMargins(kMargin, 0, kMargin, kMargin);
    strip->addWidget(cboAddress);
    connect(cboAddress, &QComboBox::activated, this, &frmBrowser::cboAddress_Click);
    connect(cboAddress->lineEdit(), &QLineEdit::returnPressed, this, &frmBrowser::cboAddress_Click);
    auto* focus = new QAction(this);
    focus->setShortcut(Qt::CTRL | Qt::Key_L);
    focus->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(focus, &QAction::triggered, this, [this] {
        cboAddress->setFocus();
        cboAddress->lineEdit()->selectAll();
    });
    addAction(focus);
}

// The first address of a window: it stands in the list before its page comes.
void frmBrowser::GoTo(const QString& address) {
    const QUrl url = PageUrl(address);
    const QString shown = IsWebPage(url) ? ShownUrl(url) : address;
    changing_ = true;
    cboAddress->addItem(shown);
    cboAddress->setEditText(shown);
    changing_ = false;
    timTimer.start();
    page_->Navigate(url, address);
}

void frmBrowser::cboAddress_Click() {
    const QString address = cboAddress->currentText().trimmed();
    if (changing_ || address.isEmpty()) return;
    timTimer.start();
    brwWebBrowser->setFocus();
    page_->Navigate(PageUrl(address), address);
}

void frmBrowser::GoHome() {
    page_->Navigate(PageUrl(home_), home_);
}

void frmBrowser::GoSearch() {
    page_->Navigate(PageUrl(search_), search_);
}

void frmBrowser::Stop() {
    timTimer.stop();
    brwWebBrowser->stop();
    busy_ = false;
    ShowLocationName();
}

QString frmBrowser::LocationName() const {
    const QString title = page_->title();
    if (!title.isEmpty()) return title;
    return LocationURL().isEmpty() ? kCaption : LocationURL();
}

QString frmBrowser::LocationURL() const {
    return ShownUrl(page_->url());
}

void frmBrowser::ShowLocationName() {
    if (!timTimer.isActive()) setWindowTitle(LocationName());
}

void frmBrowser::FollowHistory() {
    for (QAction* button : tbToolBar->actions()) {
        if (button->objectName() == QLatin1String("Back")) button->setEnabled(page_->history()->canGoBack());
        if (button->objectName() == QLatin1String("Forward"))
            button->setEnabled(page_->history()->canGoForward());
    }
}

void frmBrowser::DownloadBegin() {
    busy_ = true;
    complete_ = false;
    timTimer.start();
}

void frmBrowser::NavigateComplete() {
    setWindowTitle(LocationName());
    FollowHistory();
    // A page of the program's own has no address: the one that was asked for stays.
    if (!IsWebPage(page_->url())) return;
    changing_ = true;
    if (cboAddress->findText(LocationURL(), Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
        cboAddress->addItem(LocationURL());
    cboAddress->setEditText(LocationURL());
    changing_ = false;
}

void frmBrowser::DownloadComplete(bool ok) {
    busy_ = false;
    complete_ = ok;
    setWindowTitle(LocationName());
    FollowHistory();
}

void frmBrowser::timTimer_Timer() {
    if (busy_) return setWindowTitle(QStringLiteral("Working..."));
    timTimer.stop();
    ShowLocationName();
}

void frmBrowser::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    for (const auto action : {QWebEnginePage::Back, QWebEnginePage::Forward, QWebEnginePage::Reload})
        menu.addAction(page_->action(action));
    menu.addSeparator();
    menu.addAction(page_->action(QWebEnginePage::Copy));
    const QWebEngineContextMenuRequest* const under = brwWebBrowser->lastContextMenuRequest();
    if (under != nullptr && !under->linkUrl().isEmpty())
        menu.addAction(page_->action(QWebEnginePage::CopyLinkToClipboard));
    menu.addAction(page_->action(QWebEnginePage::SelectAll));
    menu.exec(event->globalPos());
}

void frmBrowser::Print() {
    PrintPage(*brwWebBrowser);
}

void frmBrowser::PrintPreview() {
    PreviewPage(*brwWebBrowser);
}

// The page's text is taken while the window lives; a window that closes meanwhile saves nothing.
void frmBrowser::WritePage(const Path& file) {
    page_->toHtml([window = QPointer<frmBrowser>(this), file](const QString& source) {
        const frmBrowser* const open = window.data();
        if (open == nullptr) return;
        const std::error_code error = WriteWholeFile(file, FileText(source));
        if (error) {
            open->person_.Say(CannotBeSaved(file, error));
        } else if (open->notice_) {
            open->notice_("Saved as " + file.string());
        }
    });
}

void frmBrowser::SavePage() {
    if (!complete_) return;
    WritePage(images_ / Path(PageFileName(LocationName().toStdString()).append(kPageEnding)));
}

void frmBrowser::SavePageAs() {
    if (!complete_) return;
    QFileDialog dialog(window(), QStringLiteral("Save As"), ShownPath(images_),
                       QStringLiteral("All Files (*.htm)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Name(kPageEnding.substr(1)));
    dialog.selectFile(Shown(PageFileName(LocationName().toStdString())));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    WritePage(Path(WithPageEnding(dialog.selectedFiles().constFirst().toStdString())));
}

}  // namespace brantlow
