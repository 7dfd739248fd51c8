#include "selector/windows/frmSelectorSelection.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace brantlow {

namespace {

QRadioButton* AddOption(QVBoxLayout* layout, const QString& name, const QString& words,
                        const QString& toolTip) {
    auto* option = new QRadioButton(words);
    option->setObjectName(name);
    option->setToolTip(toolTip);
    layout->addWidget(option);
    return option;
}

}  // namespace

frmSelectorSelection::frmSelectorSelection(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSelectorSelection"));
    setWindowTitle(QStringLiteral("Stock Selector Interval Selection"));
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(QStringLiteral("Analyze Quote Database on the following basis."));
    auto* options = new QVBoxLayout(frame);
    Option2 = AddOption(options, QStringLiteral("Option2"), QStringLiteral("&Daily"),
                        QStringLiteral("One bar a trading day, the recent years"));
    Option3 = AddOption(options, QStringLiteral("Option3"), QStringLiteral("&Weekly"),
                        QStringLiteral("One bar a week, the whole history"));
    Option4 = AddOption(options, QStringLiteral("Option4"), QStringLiteral("&Monthly"),
                        QStringLiteral("One bar a month, the whole history"));
    Option2->setChecked(true);
    layout->addWidget(frame);

    auto* buttons = new QDialogButtonBox(this);
    auto* go = buttons->addButton(QStringLiteral("Continue"), QDialogButtonBox::AcceptRole);
    go->setObjectName(QStringLiteral("Command1"));
    go->setToolTip(QStringLiteral("Start the Stock Selector"));
    go->setDefault(true);
    auto* exit = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    exit->setObjectName(QStringLiteral("Command2"));
    exit->setToolTip(QStringLiteral("Leave without a run"));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        accept();
        Q_EMIT Continued(SelectorInterval());
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, &frmSelectorSelection::Exited);
}

Interval frmSelectorSelection::SelectorInterval() const {
    if (Option3->isChecked()) return Interval::Weekly;
    return Option4->isChecked() ? Interval::Monthly : Interval::Daily;
}

}  // namespace brantlow
