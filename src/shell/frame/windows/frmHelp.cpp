#include "shell/frame/windows/frmHelp.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "shell/frame/windows/help_browser.h"
#include "shell/help_pages.h"

namespace brantlow {

namespace {

constexpr QSize kHelpSize(820, 640);
constexpr int kFindWidth = 200;

QAction* AddAction(QToolBar& bar, const char* name, const char* words, QStyle::StandardPixmap picture) {
    QAction* action = bar.addAction(bar.style()->standardIcon(picture), QString::fromLatin1(words));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

}  // namespace

frmHelp::frmHelp(const Path& folder, QWidget* parent)
    : QWidget(parent, Qt::Window), folder_(folder), page_(new HelpBrowser), find_(new QLineEdit) {
    setObjectName(QStringLiteral("frmHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Brantlow Help"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/help.svg")));
    resize(kHelpSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* back = AddAction(*bar, "actBack", "&Back", QStyle::SP_ArrowBack);
    QAction* forward = AddAction(*bar, "actForward", "&Forward", QStyle::SP_ArrowForward);
    QAction* contents = AddAction(*bar, "actContents", "&Contents", QStyle::SP_FileDialogContentsView);
    QAction* index = AddAction(*bar, "actIndex", "&Index", QStyle::SP_FileDialogListView);
    bar->addSeparator();
    find_->setObjectName(QStringLiteral("txtFind"));
    find_->setPlaceholderText(QStringLiteral("Find in this page (Ctrl+F)"));
    find_->setClearButtonEnabled(true);
    find_->setMaximumWidth(kFindWidth);
    find_->setAccessibleName(QStringLiteral("Find in this page"));
    bar->addWidget(find_);
    layout->addWidget(bar);
    page_->setObjectName(QStringLiteral("Page"));
    page_->setAccessibleName(QStringLiteral("Help page"));
    page_->setSearchPaths({ShownPath(folder)});
    page_->document()->setDocumentMargin(18);
    layout->addWidget(page_);

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, page_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, page_, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, [this] { ShowPage(kHelpContents); });
    connect(index, &QAction::triggered, this, [this] { ShowPage(kHelpIndex); });
    connect(find_, &QLineEdit::returnPressed, this, &frmHelp::FindNext);
    auto* findKey = new QShortcut(QKeySequence::Find, this);
    connect(findKey, &QShortcut::activated, find_, [this] { find_->setFocus(); });
    auto* closeKey = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
}

void frmHelp::ShowPage(std::string_view page) {
    if (IsRegularFile(folder_ / std::string(page))) {
        page_->setSource(QUrl(Name(page)));
    } else {
        page_->setPlainText(Shown("The page " + (folder_ / std::string(page)).string() + " is not there."));
    }
    show();
    raise();
    activateWindow();
    page_->setFocus();
}

// From the end of the page the search goes on at its beginning.
void frmHelp::FindNext() {
    if (page_->find(find_->text())) return;
    page_->moveCursor(QTextCursor::Start);
    page_->find(find_->text());
}

}  // namespace brantlow
