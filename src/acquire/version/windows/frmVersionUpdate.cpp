#include "acquire/version/windows/frmVersionUpdate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "acquire/version/updater.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"

namespace brantlow {

namespace {

constexpr int kTextWidth = 420;

}  // namespace

frmVersionUpdate::frmVersionUpdate(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmVersionUpdate"));
    setWindowTitle(QStringLiteral("Brantlow Updates"));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(Name(kNewVersionText));
    text->setObjectName(QStringLiteral("Label1"));
    text->setWordWrap(true);
    text->setFixedWidth(kTextWidth);
    layout->addWidget(text);
    auto* link = new LinkLabel(QStringLiteral("<a href=\"about\">About</a>"));
    link->setObjectName(QStringLiteral("Label2"));
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    link->setToolTip(QStringLiteral("What is new in this version"));
    connect(link, &QLabel::linkActivated, this, &frmVersionUpdate::AboutAsked);
    layout->addWidget(link);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Yes | QDialogButtonBox::No);
    buttons->button(QDialogButtonBox::Yes)->setObjectName(QStringLiteral("Command1"));
    buttons->button(QDialogButtonBox::No)->setObjectName(QStringLiteral("Command2"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace brantlow
