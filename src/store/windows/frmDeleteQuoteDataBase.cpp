#include "store/windows/frmDeleteQuoteDataBase.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kQuestionWidth = 360;
// What the window ends with; 0 is that of Cancel and Escape.
constexpr int kRowAlone = 1;
constexpr int kWithHistory = 2;

}  // namespace

frmDeleteQuoteDataBase::frmDeleteQuoteDataBase(const std::string& ticker, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmDeleteQuoteDataBase"));
    setWindowTitle(QStringLiteral("Delete Quotes from Database"));
    auto* layout = new QVBoxLayout(this);
    auto* question = new QLabel(
        QStringLiteral("Would you like to delete the Quote Data from the Database for this Ticker Symbol?"));
    question->setObjectName(QStringLiteral("Label1"));
    question->setWordWrap(true);
    question->setFixedWidth(kQuestionWidth);
    layout->addWidget(question);
    auto* symbol = new QLineEdit(Shown(ticker));
    symbol->setObjectName(QStringLiteral("Text1"));
    symbol->setAccessibleName(QStringLiteral("Ticker Symbol"));
    symbol->setReadOnly(true);
    symbol->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(symbol);
    auto* buttons = new QDialogButtonBox;
    auto* remove = buttons->addButton(QStringLiteral("Delete"), QDialogButtonBox::AcceptRole);
    remove->setObjectName(QStringLiteral("Command1"));
    remove->setToolTip(
        QStringLiteral("Delete the ticker and its whole history; Edit, Undo brings both back"));
    auto* keep = buttons->addButton(QStringLiteral("Keep History"), QDialogButtonBox::AcceptRole);
    keep->setObjectName(QStringLiteral("Command2"));
    keep->setToolTip(QStringLiteral("Keep the history; the ticker leaves the quote file all the same"));
    keep->setDefault(true);
    auto* cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setToolTip(QStringLiteral("Leave the ticker in the quote file"));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    keep->setFocus();
    connect(remove, &QPushButton::clicked, this, [this] { done(kWithHistory); });
    connect(keep, &QPushButton::clicked, this, [this] { done(kRowAlone); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::optional<bool> frmDeleteQuoteDataBase::Ask() {
    const int end = exec();
    if (end == QDialog::Rejected) return std::nullopt;
    return end == kWithHistory;
}

}  // namespace brantlow
