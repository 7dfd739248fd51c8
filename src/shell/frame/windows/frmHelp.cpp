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
// Rims and the button that clears, beside the words of a field.
constexpr int kBesideWords = 40;

// A field of the bar that does something at Enter and takes the focus at a key.
QLineEdit* AddField(QToolBar& bar, const char* name, const char* words, const QKeySequence& key) {
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    field->setPlaceholderText(
        QStringLiteral("%1 (%2)").arg(QString::fromLatin1(words), key.toString(QKeySequence::NativeText)));
    field->setToolTip(field->placeholderText());
    field->setAccessibleName(QString::fromLatin1(words));
    field->setClearButtonEnabled(true);
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(field->placeholderText()) + kBesideWords);
    bar.addWidget(field);
    auto* shortcut = new QShortcut(key, bar.parentWidget());
    QObject::connect(shortcut, &QShortcut::activated, field, [field] {
        field->setFocus();
        field->selectAll();
    });
    return field;
}

QAction* AddAction(QToolBar& bar, const char* name, const char* words, QStyle::StandardPixmap picture) {
    QAction* action = bar.addAction(bar.style()->standardIcon(picture), QString::fromLatin1(words));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

}  // namespace

frmHelp::frmHelp(const Path& folder, QWidget* parent)
    : QWidget(parent, Qt::Window), folder_(folder), page_(new HelpBrowser(folder)) {
    setObjectName(QStringLiteral("frmHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Brantlow Help"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/help.svg")));
    resize(kHelpSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction* back = AddAction(*bar, "actBack", "&Back", QStyle::SP_ArrowBack);
    QAction* forward = AddAction(*bar, "actForward", "&Forward", QStyle::SP_ArrowForward);
    QAction* contents = AddAction(*bar, "actContents", "&Contents", QStyle::SP_FileDialogContentsView);
    QAction* index = AddAction(*bar, "actIndex", "&Index", QStyle::SP_FileDialogListView);
    bar->addSeparator();
    find_ = AddField(*bar, "txtFind", "Find in this page", QKeySequence::Find);
    search_ = AddField(*bar, "txtSearch", "Search all pages", Qt::CTRL | Qt::SHIFT | Qt::Key_F);
    layout->addWidget(bar);
    page_->setObjectName(QStringLiteral("Page"));
    page_->setAccessibleName(QStringLiteral("Help page"));
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
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (!search_->text().trimmed().isEmpty()) page_->ShowHits(search_->text().simplified());
    });
    auto* closeKey = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
}

void frmHelp::ShowPage(std::string_view page) {
    // A place is found on a page that has its width.
    show();
    const Path file = folder_ / std::string(page.substr(0, page.find('#')));
    if (IsRegularFile(file)) {
        page_->setSource(QUrl(Name(page)));
    } else {
        page_->setPlainText(Shown("The page " + file.string() + " is not there."));
    }
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
