#include "splits/windows/frmSplitFactor.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "splits/split_factors.h"

namespace brantlow {

namespace {

// The choices stand in columns of this many, those of more shares before those of fewer.
constexpr int kRows = 6;
constexpr int kColumnGap = 28;

// The ticker, to be read and not to be changed.
QHBoxLayout* TickerRow(const std::string& ticker) {
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Ticker Symbol")));
    auto* box = new QLineEdit(Shown(ticker));
    box->setObjectName(QStringLiteral("Text1"));
    box->setAccessibleName(QStringLiteral("Ticker Symbol"));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    row->addWidget(box, 1);
    return row;
}

}  // namespace

frmSplitFactor::frmSplitFactor(const std::string& ticker, QWidget* parent)
    : QDialog(parent), choices_(new QButtonGroup(this)) {
    setObjectName(QStringLiteral("frmSplitFactor"));
    setWindowTitle(Name(kSplitDialogTitle));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(TickerRow(ticker));
    layout->addWidget(BuildChoices());
    auto* buttons = new QDialogButtonBox;
    continue_ = buttons->addButton(QStringLiteral("Continue"), QDialogButtonBox::AcceptRole);
    continue_->setObjectName(QStringLiteral("Command1"));
    continue_->setToolTip(QStringLiteral("Restate the history before the split"));
    continue_->setDefault(true);
    continue_->setEnabled(false);
    auto* cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("Command2"));
    cancel->setToolTip(QStringLiteral("Leave the history as it is"));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(choices_, &QButtonGroup::idToggled, this, [this] { continue_->setEnabled(true); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QWidget* frmSplitFactor::BuildChoices() {
    auto* frame = new QGroupBox(Name(kSplitDialogFrame));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* rows = new QVBoxLayout(frame);
    auto* words = new QLabel(Name(kSplitDialogLabel));
    words->setObjectName(QStringLiteral("Label1"));
    rows->addWidget(words);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kColumnGap);
    for (int i = 0; i < static_cast<int>(kSplitChoices.size()); ++i) {
        const SplitChoice& choice = kSplitChoices[static_cast<std::size_t>(i)];
        auto* option = new QRadioButton(Name(choice.caption));
        option->setObjectName(Name(choice.control));
        choices_->addButton(option, i);
        grid->addWidget(option, i % kRows, i / kRows);
    }
    rows->addLayout(grid);
    return frame;
}

double frmSplitFactor::SplitFactor() const {
    const int chosen = choices_->checkedId();
    return chosen < 0 ? 0 : kSplitChoices[static_cast<std::size_t>(chosen)].Factor();
}

}  // namespace brantlow
