#include "chart/windows/frmGraphNoData.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <array>
#include <string_view>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kTextWidth = 420;

struct Line {
    std::string_view control;
    std::string_view words;
};
constexpr std::array kLines = {
    Line{"Label1", "Data does not exist in the Quote Database for this Ticker Symbol."},
    Line{"Label2", "Brantlow will now add this historical data to the database."},
    Line{"Label3",
         "At your convienience, you should add this Ticker Symbol to the Quote File which you maintain with "
         "daily updates in order to keep the quote database current and up to date."},
};

}  // namespace

frmGraphNoData::frmGraphNoData(std::function<void()> download, QWidget* parent)
    : QDialog(parent), download_(std::move(download)), busy_(new QProgressBar) {
    setObjectName(QStringLiteral("frmGraphNoData"));
    setWindowTitle(QStringLiteral("Database Check"));
    auto* layout = new QVBoxLayout(this);
    for (const Line& line : kLines) {
        auto* text = new QLabel(Name(line.words));
        text->setObjectName(Name(line.control));
        text->setWordWrap(true);
        text->setFixedWidth(kTextWidth);
        layout->addWidget(text);
    }
    // How much will come is not known before it has come.
    busy_->setRange(0, 0);
    busy_->setTextVisible(false);
    busy_->setAccessibleName(QStringLiteral("The history is being downloaded"));
    QSizePolicy keepsItsPlace = busy_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    busy_->setSizePolicy(keepsItsPlace);
    busy_->hide();
    layout->addWidget(busy_);
    auto* buttons = new QDialogButtonBox;
    Command1 = buttons->addButton(QStringLiteral("Next"), QDialogButtonBox::ActionRole);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Download the history of this ticker"));
    Command1->setDefault(true);
    Command2 = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setToolTip(QStringLiteral("Leave the database as it is"));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(Command1, &QPushButton::clicked, this, &frmGraphNoData::Next);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmGraphNoData::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmGraphNoData::reject() {
    if (busy_->isHidden()) QDialog::reject();
}

void frmGraphNoData::Next() {
    busy_->show();
    Command1->setEnabled(false);
    Command2->setEnabled(false);
    download_();
    busy_->hide();
    accept();
}

}  // namespace brantlow
