#include "shell/frame/windows/frmDisclaimer.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "base/windows/display_text.h"
#include "shell/person.h"

namespace brantlow {

namespace {

constexpr QSize kWindowSize(620, 440);

constexpr std::string_view kMustAccept = "You must Accept the Terms and Conditions before continuing.";

constexpr std::array<std::string_view, 8> kTerms = {
    "1. What the program is. Brantlow computes figures from quotes and shows which of them meet conditions "
    "that "
    "you have set. It is a tool for your own research.",
    "2. No advice. Nothing that the program shows is investment advice, a recommendation or an offer. Buy, "
    "Sell "
    "and Hold are names of your own conditions, not opinions of the makers.",
    "3. Quotes may be wrong. Quotes, splits and company figures come from services of others. They may be "
    "late, "
    "incomplete or wrong. Check every figure with your broker before you act on it.",
    "4. The past is no promise. A back-test tells what a rule would have given on stored prices. It leaves "
    "out "
    "taxes, spreads and orders that are not filled, and says nothing about the future.",
    "5. Your decisions. You alone decide what you buy and sell and bear the outcome.",
    "6. Your data. Tables, settings and the quote database lie in the program's folder on your machine. Back "
    "them "
    "up; the Edit menu and the settings help you.",
    "7. The web. The program asks the hosts named in Data/Hosts.ini for quotes and pages, and for nothing "
    "else. "
    "What the services allow you to do with their data is between them and you.",
    "8. No warranty. The program comes as it is. As far as the law permits, its makers are not liable for "
    "loss or "
    "damage that follows from its use.",
};

}  // namespace

frmDisclaimer::frmDisclaimer(Person& person, QWidget* parent)
    : QDialog(parent), person_(person), Check1(new QCheckBox(QStringLiteral("Accept Conditions"))) {
    setObjectName(QStringLiteral("frmDisclaimer"));
    setWindowTitle(QStringLiteral("Terms, Conditions, and Disclaimer"));
    resize(kWindowSize);
    auto* layout = new QVBoxLayout(this);
    auto* terms = new QListWidget;
    terms->setObjectName(QStringLiteral("List1"));
    terms->setAccessibleName(windowTitle());
    terms->setWordWrap(true);
    terms->setSelectionMode(QAbstractItemView::NoSelection);
    terms->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    terms->setSpacing(4);
    for (const std::string_view paragraph : kTerms) terms->addItem(Name(paragraph));
    layout->addWidget(terms);
    Check1->setObjectName(QStringLiteral("Check1"));
    layout->addWidget(Check1);
    auto* buttons = new QDialogButtonBox;
    auto* go = buttons->addButton(QStringLiteral("Continue"), QDialogButtonBox::ActionRole);
    go->setObjectName(QStringLiteral("Command1"));
    auto* exit = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    exit->setObjectName(QStringLiteral("Command2"));
    connect(go, &QPushButton::clicked, this, &frmDisclaimer::Command1_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void frmDisclaimer::Command1_Click() {
    if (!Check1->isChecked()) return person_.Say(kMustAccept);
    accept();
}

}  // namespace brantlow
