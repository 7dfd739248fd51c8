#include "selector/windows/frmSelectorSelection.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/windows/date_boxes.h"

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

frmSelectorSelection::frmSelectorSelection(const Date& today, QWidget* parent)
    : QDialog(parent), asOf_(new QDateEdit(Shown(today))) {
    setObjectName(QStringLiteral("frmSelectorSelection"));
    setWindowTitle(QStringLiteral("Stock Selector Interval Selection"));
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(QStringLiteral("Analyze Quote Database on the following basis."));
    auto* options = new QVBoxLayout(frame);
    Option2 = AddOption(options, QStringLiteral("Option2"), QStringLiteral("&Daily"),
                        QStringLiteral("One bar a trading day, the recent years"));
    Option3 = AddOption(options, QStringLiteral("Option3"), QStringLiteral("&Weekly"),
                        QStringLiteral("One bar for each five days, over the whole history"));
    Option4 = AddOption(options, QStringLiteral("Option4"), QStringLiteral("&Monthly"),
                        QStringLiteral("One bar for each twenty days, over the whole history"));
    Option2->setChecked(true);
    layout->addWidget(frame);
    AddDay(*layout);

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

void frmSelectorSelection::AddDay(QVBoxLayout& layout) {
    asOf_->setObjectName(QStringLiteral("AsOf"));
    asOf_->setCalendarPopup(true);
    asOf_->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    asOf_->setMaximumDate(asOf_->date());
    asOf_->setToolTip(
        QStringLiteral("The verdicts of this evening: what came later counts as not known yet"));
    auto* words = new QLabel(QStringLiteral("As &of"));
    words->setBuddy(asOf_);
    auto* row = new QHBoxLayout;
    row->addWidget(words);
    row->addWidget(asOf_, 1);
    layout.addLayout(row);
}

std::optional<Date> frmSelectorSelection::LastDay() const {
    if (asOf_->date() == asOf_->maximumDate()) return std::nullopt;
    return DateOf(asOf_->date());
}

Interval frmSelectorSelection::SelectorInterval() const {
    if (Option3->isChecked()) return Interval::Weekly;
    return Option4->isChecked() ? Interval::Monthly : Interval::Daily;
}

}  // namespace brantlow
